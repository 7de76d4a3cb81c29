#pragma once
#include <windows.h>
#include "CStdStr.h"

// Names the program behind a window: window -> process id -> executable file name
// (e.g. "firefox.exe", with the case the file system has). A process that cannot be opened
// gives an empty name.
class CProcessFinder {
public:
    // The process-wide finder; created on first use when create is true, else possibly null.
    static CProcessFinder* Instance(bool create);
    // Deletes the process-wide finder (Instance(false) gives null afterwards).
    static void DestroyInstance() noexcept;

    CStdStr GetForegroundProcessName(HWND window) const;
    CStdStr GetForegroundProcessName() const;
    CStdStr GetProcessName(DWORD processId) const;
    // The foreground window, waiting a short while (at most about a second) for one to exist;
    // null when there is still none.
    HWND WaitForegroundWindow() const noexcept;

    // While one lives, the finder names the program behind a window once: asked again for the
    // same window, it answers from that lookup. A command holds one while every factory asks
    // for the name of the same window; once the last scope ends the finder looks up afresh.
    class CommandScope {
    public:
        explicit CommandScope(const CProcessFinder& finder) noexcept : finder_(finder) { ++finder_.scopes_; }
        ~CommandScope();
        CommandScope(const CommandScope&) = delete;
        CommandScope& operator=(const CommandScope&) = delete;

    private:
        const CProcessFinder& finder_;
    };

private:
    mutable int scopes_ = 0;
    // The last window named inside a scope, and its program's name.
    mutable HWND namedWindow_ = nullptr;
    mutable CStdStr programName_;
};
