#include "support/StubLog.h"
#include "support/WaitFor.h"

namespace wbstest {

namespace {

const DWORD kPollMs = 5;

}  // namespace

StubLog StubLog::ForProgram(const std::wstring& programPath) {
    return StubLog(stublog::ReplaceExtension(programPath, L".log"));
}

std::vector<std::wstring> StubLog::Lines() const { return stublog::CompleteLines(stublog::ReadShared(path_)); }

std::vector<LogEvent> StubLog::Events(std::wstring_view name) const {
    std::vector<LogEvent> events;
    for (const std::wstring& line : Lines()) {
        LogEvent event = stublog::ParseLine(line);
        if (name.empty() || event.name == name) events.push_back(std::move(event));
    }
    return events;
}

bool StubLog::WaitForLine(std::wstring_view text, DWORD timeoutMs) const {
    return WaitForLine([text](const std::wstring& line) { return line.find(text) != std::wstring::npos; },
                       timeoutMs);
}

bool StubLog::WaitForLine(const std::function<bool(const std::wstring&)>& matches, DWORD timeoutMs) const {
    return WaitFor(
        [&] {
            for (const std::wstring& line : Lines())
                if (matches(line)) return true;
            return false;
        },
        timeoutMs, kPollMs);
}

std::optional<LogEvent> StubLog::WaitForEvent(std::wstring_view name, DWORD timeoutMs,
                                              const std::function<bool(const LogEvent&)>& matches) const {
    std::optional<LogEvent> found;
    WaitFor(
        [&] {
            for (LogEvent& event : Events(name)) {
                if (!matches || matches(event)) {
                    found = std::move(event);
                    return true;
                }
            }
            return false;
        },
        timeoutMs, kPollMs);
    return found;
}

std::vector<DWORD> StubLog::ProcessIds() const {
    std::vector<DWORD> ids;
    for (const LogEvent& event : Events(L"process")) ids.push_back(static_cast<DWORD>(event.Number(L"pid")));
    return ids;
}

std::vector<StubWindow> StubLog::Windows(DWORD processId) const {
    std::vector<StubWindow> windows;
    for (const LogEvent& event : Events(L"window")) {
        const DWORD owner = static_cast<DWORD>(event.Number(L"pid"));
        if (processId != 0 && owner != processId) continue;
        windows.push_back({owner, event.Window(L"hwnd"), event.Window(L"parent"), event.Field(L"class"),
                           event.Field(L"text"), static_cast<int>(event.Number(L"toolbar-position"))});
    }
    return windows;
}

bool StubLog::IsReady(DWORD processId) const {
    for (const LogEvent& event : Events(L"ready"))
        if (event.Number(L"pid") == processId) return true;
    return false;
}

HWND StubLog::MainWindow(DWORD processId) const {
    HWND main = nullptr;
    for (const LogEvent& event : Events(L"ready"))
        if (processId == 0 || event.Number(L"pid") == processId) main = event.Window(L"main");
    return main;
}

}  // namespace wbstest
