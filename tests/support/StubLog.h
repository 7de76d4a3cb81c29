#pragma once
#include <windows.h>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>
#include "fixtures/stubbrowser/StubLogFormat.h"

namespace wbstest {

using stublog::LogEvent;

// One window that a fixture browser made, as its "window" line records it.
struct StubWindow {
    DWORD processId = 0;
    HWND handle = nullptr;
    HWND parent = nullptr;
    std::wstring className;
    std::wstring text;
    int toolbarPosition = 0;  // position in the AOL toolbar walk, 0 for other windows
};

// Reads a fixture browser's log, also that of a copy the library started with a command line the
// test did not choose. Only whole lines are read: a line still being written is not seen yet.
class StubLog {
public:
    explicit StubLog(std::wstring path) : path_(std::move(path)) {}
    // The log a copy installed at programPath writes by default: "<path without extension>.log".
    static StubLog ForProgram(const std::wstring& programPath);

    const std::wstring& Path() const { return path_; }
    std::vector<std::wstring> Lines() const;
    // Every event, or only those of the given name, in the order they were logged.
    std::vector<LogEvent> Events(std::wstring_view name = {}) const;

    [[nodiscard]] bool WaitForLine(std::wstring_view text, DWORD timeoutMs) const;
    [[nodiscard]] bool WaitForLine(const std::function<bool(const std::wstring&)>& matches, DWORD timeoutMs) const;
    // The first event of that name that matches (any, without a matcher) within the bound.
    std::optional<LogEvent> WaitForEvent(std::wstring_view name, DWORD timeoutMs,
                                         const std::function<bool(const LogEvent&)>& matches = {}) const;

    // Process ids in the order the copies started ("process" lines).
    std::vector<DWORD> ProcessIds() const;
    // The windows of one process (0: of every process).
    std::vector<StubWindow> Windows(DWORD processId = 0) const;
    // Whether that process has logged its "ready" line.
    bool IsReady(DWORD processId) const;
    // The main window from that process's "ready" line (0: the last one logged); null if not ready.
    HWND MainWindow(DWORD processId = 0) const;

private:
    std::wstring path_;
};

}  // namespace wbstest
