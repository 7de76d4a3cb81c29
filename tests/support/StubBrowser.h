#pragma once
#include <windows.h>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include "core/ScopedHandle.h"
#include "support/ScratchFolder.h"
#include "support/StubLog.h"

namespace wbstest {

// Owns one copy of the fixture browser under a browser's program name, in a scratch folder of its
// own, and the process it starts. Going out of scope closes every process of that copy still
// running, also those the library started: WM_CLOSE to its main window, then termination after a
// bound; then the folder is removed.
class StubBrowser {
public:
    static const DWORD kReadyTimeoutMs = 10000;

    StubBrowser();
    StubBrowser(const StubBrowser&) = delete;
    StubBrowser& operator=(const StubBrowser&) = delete;
    ~StubBrowser();

    // Copies the fixture browser as programName (e.g. L"firefox.exe") and returns the copy's full
    // path. Arguments given here go to the copy's arguments file, so the copy behaves so however it
    // is started (by the library, with a command line of its own). Installing a second name into
    // the same object is refused (returns an empty path).
    std::wstring Install(const std::wstring& programName, const std::vector<std::wstring>& arguments = {});
    // Installs and starts the copy with these arguments and its folder as working directory, and
    // waits for its "ready" line. False when it cannot start or is not ready in time.
    [[nodiscard]] bool Start(const std::wstring& programName, const std::vector<std::wstring>& arguments = {},
                             DWORD readyTimeoutMs = kReadyTimeoutMs);

    const std::wstring& ProgramPath() const { return programPath_; }
    std::wstring Folder() const { return folder_ ? folder_->Path() : std::wstring(); }
    const StubLog& Log() const { return log_; }

    // Of the process that Start made.
    DWORD ProcessId() const { return processId_; }
    HANDLE Process() const { return process_.get(); }
    HWND MainWindow() const;
    std::vector<StubWindow> Windows() const;
    // The nth window (from 0, in creation order) of that class; null if there is none.
    HWND Window(std::wstring_view className, size_t nth = 0) const;
    // The window at that position of the AOL toolbar walk (1: the combo box, 2: its edit ...).
    HWND ToolbarItem(int position) const;
    [[nodiscard]] bool WaitForExit(DWORD timeoutMs) const;

    std::vector<std::wstring> Lines() const { return log_.Lines(); }
    [[nodiscard]] bool WaitForLine(std::wstring_view text, DWORD timeoutMs) const {
        return log_.WaitForLine(text, timeoutMs);
    }

    // Closes every running process of this copy (see the class comment); the object can start again.
    void CloseAll();

    // A command line whose arguments the C runtime splits back into exactly these strings.
    static std::wstring CommandLine(const std::wstring& program, const std::vector<std::wstring>& arguments);

private:
    std::unique_ptr<ScratchFolder> folder_;
    std::wstring programPath_;
    StubLog log_{L""};
    ScopedHandle process_;
    DWORD processId_ = 0;
    DWORD threadId_ = 0;
};

}  // namespace wbstest
