#include "browsers/StartProgram.h"
#include <utility>
#include <vector>
#include "core/ScopedHandle.h"
#include "tovutil/BringProcessToForeground.h"

namespace {
constexpr DWORD kExpandedCapacity = 2056;
constexpr int kForegroundTries = 6;
constexpr DWORD kFirstForegroundWaitMs = 100;

// Start-up and process records come zero-filled from the process heap and go back to it.
struct HeapRecord {
    explicit HeapRecord(SIZE_T size) noexcept : data(::HeapAlloc(::GetProcessHeap(), HEAP_ZERO_MEMORY, size)) {}
    ~HeapRecord() {
        if (data) ::HeapFree(::GetProcessHeap(), 0, data);
    }
    HeapRecord(const HeapRecord&) = delete;
    HeapRecord& operator=(const HeapRecord&) = delete;
    void* data;
};
}  // namespace

ScopedHandle StartIdleProcess(wchar_t* commandLine, bool handToForeground) {
    HeapRecord startupRecord(sizeof(STARTUPINFOW));
    HeapRecord processRecord(sizeof(PROCESS_INFORMATION));
    if (!startupRecord.data || !processRecord.data) return ScopedHandle();
    auto* startup = static_cast<STARTUPINFOW*>(startupRecord.data);
    auto* process = static_cast<PROCESS_INFORMATION*>(processRecord.data);
    startup->cb = sizeof(STARTUPINFOW);
    startup->dwFlags = STARTF_USESHOWWINDOW | STARTF_FORCEONFEEDBACK;
    startup->wShowWindow = SW_SHOWNORMAL;
    if (!::CreateProcessW(nullptr, commandLine, nullptr, nullptr, FALSE, CREATE_NEW_PROCESS_GROUP, nullptr, nullptr,
                          startup, process))
        return ScopedHandle();
    ScopedHandle processHandle(process->hProcess);
    const ScopedHandle threadHandle(process->hThread);
    ::WaitForInputIdle(processHandle.get(), INFINITE);
    BringProcessToForeground(process->dwProcessId, handToForeground ? processHandle.get() : nullptr);
    return processHandle;
}

bool StartProgram(const wchar_t* commandLine, HWND* window) {
    if (commandLine == nullptr) return false;
    const HWND previousForeground = ::GetForegroundWindow();

    std::vector<wchar_t> expanded(kExpandedCapacity, L'\0');
    const DWORD expandedLength = ::ExpandEnvironmentStringsW(commandLine, expanded.data(), kExpandedCapacity);
    std::vector<wchar_t> line;
    if (expandedLength > 0 && expandedLength <= kExpandedCapacity)
        line.assign(expanded.begin(), expanded.begin() + expandedLength);
    else
        line.assign(commandLine, commandLine + ::lstrlenW(commandLine) + 1);
    if (line.empty() || line.back() != L'\0') line.push_back(L'\0');

    const ScopedHandle processHandle = StartIdleProcess(line.data(), true);
    if (!processHandle) return false;

    // Give the program time to take the foreground, and no longer once it has ended.
    bool slept = false;
    WaitDoubling([&] {
        if (std::exchange(slept, true) && ::WaitForSingleObject(processHandle.get(), 20) == WAIT_OBJECT_0) return false;
        return ::GetForegroundWindow() == previousForeground;
    });
    if (window) *window = ::GetForegroundWindow();
    return true;
}

void WaitDoubling(const std::function<bool()>& keepWaiting) {
    DWORD wait = kFirstForegroundWaitMs;
    for (int attempt = 0; attempt < kForegroundTries && keepWaiting(); ++attempt, wait *= 2) ::Sleep(wait);
}

std::wstring QuotedCommandLine(const std::wstring& programPath, const std::wstring& arguments) {
    std::wstring path;
    path.reserve(programPath.size());
    for (const wchar_t ch : programPath)
        if (ch != L'"') path += ch;
    return arguments.empty() ? L"\"" + path + L"\"" : L"\"" + path + L"\" \"" + arguments + L"\"";
}
