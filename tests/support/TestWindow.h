#pragma once
#include <windows.h>
#include <string>
#include <vector>

namespace wbstest {

// A top-level window of the test process with a class name of the test's choosing. It records
// the application commands it receives. Programs other than the test see it as
// "wbs_*_tests.exe", which no browser family claims.
class TestWindow {
public:
    struct Options {
        int x = 300, y = 300, width = 200, height = 150;
        bool topmost = false;
        bool activate = true;  // shown active and made the foreground window
    };
    explicit TestWindow(const std::wstring& className);
    // A topmost window at the screen's top left, not activated, with the mouse pointer moved
    // into it: the window that commands aimed "under the pointer" reach.
    static Options UnderThePointer(bool activate = false);
    // Moves the mouse pointer into the window; true when the window is the one under it.
    bool PointAt() const;
    TestWindow(const std::wstring& className, const Options& options);
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    ~TestWindow();

    HWND Handle() const { return window_; }
    bool MakeForeground() const;
    // Application-command codes received, in order.
    const std::vector<int>& AppCommands() const { return appCommands_; }

private:
    static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    std::wstring className_;
    HWND window_ = nullptr;
    std::vector<int> appCommands_;
};

}  // namespace wbstest
