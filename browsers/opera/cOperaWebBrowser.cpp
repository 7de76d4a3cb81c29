#include "browsers/opera/cOperaWebBrowser.h"
#include "browsers/StartProgram.h"
#include <cwchar>
#include <string>
#include <vector>
#include "browsers/MozillaFamily.h"
#include "browsers/RaiseWindow.h"
#include "browsers/opera/OperaProgramPath.h"
#include "core/ScopedHandle.h"
#include "tovutil/BringProcessToForeground.h"
#include "tovutil/ForegroundAttentionGrabber.h"

namespace {
const wchar_t kServiceName[] = L"Opera";
const wchar_t kMainWindowClass[] = L"OpWindow";
const wchar_t kOtherWindowClass[] = L"OUIWINDOW";
constexpr int kForegroundTries = 6;
constexpr DWORD kFirstForegroundWaitMs = 100;

// Start-up and process records come zero-filled from the process heap and go back to it.
class HeapRecord {
public:
    explicit HeapRecord(SIZE_T size) noexcept : data_(::HeapAlloc(::GetProcessHeap(), HEAP_ZERO_MEMORY, size)) {}
    ~HeapRecord() {
        if (data_ != nullptr) ::HeapFree(::GetProcessHeap(), 0, data_);
    }
    HeapRecord(const HeapRecord&) = delete;
    HeapRecord& operator=(const HeapRecord&) = delete;
    template <typename T>
    T* As() const noexcept { return static_cast<T*>(data_); }

private:
    void* data_;
};

bool StartOpera(wchar_t* commandLine) {
    HeapRecord startupRecord(sizeof(STARTUPINFOW));
    HeapRecord processRecord(sizeof(PROCESS_INFORMATION));
    auto* startup = startupRecord.As<STARTUPINFOW>();
    auto* process = processRecord.As<PROCESS_INFORMATION>();
    if (startup == nullptr || process == nullptr) return false;
    startup->cb = sizeof(STARTUPINFOW);
    startup->dwFlags = STARTF_USESHOWWINDOW | STARTF_FORCEONFEEDBACK;
    startup->wShowWindow = SW_SHOWNORMAL;
    if (!::CreateProcessW(nullptr, commandLine, nullptr, nullptr, FALSE, CREATE_NEW_PROCESS_GROUP, nullptr, nullptr,
                          startup, process))
        return false;
    const ScopedHandle processHandle(process->hProcess);
    const ScopedHandle threadHandle(process->hThread);
    ::WaitForInputIdle(processHandle.get(), INFINITE);
    BringProcessToForeground(process->dwProcessId, nullptr);
    return true;
}
}  // namespace

cOperaWebBrowser::cOperaWebBrowser(HWND window) : cGenericWebBrowser(window), cNavigateUtility(CStdStr(kServiceName)) {
    keySender_.SetMappingFileBase(MappingName.c_str());
}

bool cOperaWebBrowser::OpenURL(HWND, const CStdStr& url) {
    ForegroundAttentionGrabber grabber;
    CStdStr programPath;
    CStdStr arguments;
    if (!GetProgramPath(programPath, arguments)) return false;
    arguments += url;
    std::wstring commandLine = QuotedCommandLine(programPath, arguments);
    const bool started = StartOpera(commandLine.data());

    // Opera may take a while to show its window; the wait does not change the result.
    DWORD wait = kFirstForegroundWaitMs;
    for (int attempt = 0; attempt < kForegroundTries && ::GetForegroundWindow() == nullptr; ++attempt, wait *= 2)
        ::Sleep(wait);
    return started;
}

bool cOperaWebBrowser::RaiseOpera() {
    const HWND mainWindow = ::FindWindowW(kMainWindowClass, nullptr);
    if (mainWindow == nullptr) return false;
    // Opera may be minimised through its other top-level window while the main one is not.
    const HWND otherWindow = ::FindWindowW(kOtherWindowClass, nullptr);
    if (::IsWindow(otherWindow) && ::IsIconic(otherWindow))
        ::ShowWindow(otherWindow, SW_RESTORE);
    else if (::IsIconic(mainWindow))
        ::ShowWindow(mainWindow, SW_RESTORE);
    return RaiseWindow(mainWindow);
}

bool cOperaWebBrowser::GoToWebAddress(const CStdStr& url) {
    if (url.empty()) {
        const HWND mainWindow = ::FindWindowW(kMainWindowClass, nullptr);
        if (mainWindow != nullptr) {
            window = mainWindow;
            RaiseOpera();
            return GoHome(true);
        }
    }
    const bool opened = OpenURL(window, url);
    RaiseOpera();
    return opened;
}

bool cOperaWebBrowser::GetCurrentPage(PageInfo& out) { return CurrentPage(out); }

bool cOperaWebBrowser::ShowFavorites() { return PressMappedButton(keySender_, MozillaButton::OpenFavorites); }

bool cOperaWebBrowser::GetFavorites(FavoritesList& out) { return favorites_.GetFavorites(out); }

bool cOperaWebBrowser::ShowHistory() { return PressMappedButton(keySender_, MozillaButton::History); }

bool cOperaWebBrowser::GetHistory(HistoryList& out) { return history_.FindHistory(out); }

bool cOperaWebBrowser::GetProgramPath(CStdStr& programPath, CStdStr& arguments) {
    arguments.clear();
    return FindOperaProgramPath(ProgramName.c_str(), programPath);
}
