#include "support/WineInternetExplorer.h"
#include "support/WaitFor.h"

namespace wbstest {
namespace {
constexpr DWORD kStartMs = 10000;
constexpr DWORD kCloseMs = 3000;

void Close(HWND frame, HANDLE process) {
    ::PostMessageW(frame, WM_CLOSE, 0, 0);
    if (process != nullptr && ::WaitForSingleObject(process, kCloseMs) != WAIT_OBJECT_0) ::TerminateProcess(process, 0);
    WaitFor([&] { return !::IsWindow(frame); }, kCloseMs);
}
}  // namespace

WineInternetExplorer::WineInternetExplorer() {
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started = {};
    wchar_t commandLine[] = L"\"C:\\Program Files\\Internet Explorer\\iexplore.exe\" about:blank";
    if (!::CreateProcessW(nullptr, commandLine, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started)) return;
    process_.reset(started.hProcess);
    ScopedHandle thread(started.hThread);
    WaitFor([&] { return (frame_ = ::FindWindowW(L"IEFrame", nullptr)) != nullptr; }, kStartMs);
}

WineInternetExplorer::~WineInternetExplorer() {
    if (frame_ != nullptr) Close(frame_, process_.get());
}

void WineInternetExplorer::CloseAll() {
    for (int i = 0; i < 10; ++i) {
        HWND frame = ::FindWindowW(L"IEFrame", nullptr);
        if (frame == nullptr) return;
        DWORD processId = 0;
        ::GetWindowThreadProcessId(frame, &processId);
        ScopedHandle process(::OpenProcess(SYNCHRONIZE | PROCESS_TERMINATE, FALSE, processId));
        Close(frame, process.get());
    }
}

}  // namespace wbstest
