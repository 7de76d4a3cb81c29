#include "support/TestWindow.h"
#include "support/WaitFor.h"

namespace wbstest {

TestWindow::TestWindow(const std::wstring& className) : TestWindow(className, Options()) {}

TestWindow::TestWindow(const std::wstring& className, const Options& options) : className_(className) {
    WNDCLASSW windowClass = {};
    windowClass.lpfnWndProc = Proc;
    windowClass.hInstance = ::GetModuleHandleW(nullptr);
    windowClass.lpszClassName = className_.c_str();
    windowClass.cbWndExtra = sizeof(void*);
    ::RegisterClassW(&windowClass);
    const DWORD exStyle = (options.topmost ? WS_EX_TOPMOST : 0) | (options.activate ? 0 : WS_EX_NOACTIVATE);
    window_ = ::CreateWindowExW(exStyle, className_.c_str(), L"test window", WS_POPUP, options.x, options.y,
                                options.width, options.height, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (window_ == nullptr) return;
    ::SetWindowLongPtrW(window_, 0, reinterpret_cast<LONG_PTR>(this));
    ::ShowWindow(window_, options.activate ? SW_SHOW : SW_SHOWNOACTIVATE);
    if (options.activate) MakeForeground();
}

TestWindow::Options TestWindow::UnderThePointer(bool activate) {
    Options options;
    options.x = 0;
    options.y = 0;
    options.topmost = true;
    options.activate = activate;
    return options;
}

bool TestWindow::PointAt() const {
    RECT area = {};
    ::GetWindowRect(window_, &area);
    const POINT inside = {area.left + 20, area.top + 20};
    return ::SetCursorPos(inside.x, inside.y) && ::WindowFromPoint(inside) == window_;
}

TestWindow::~TestWindow() {
    if (window_) ::DestroyWindow(window_);
    ::UnregisterClassW(className_.c_str(), ::GetModuleHandleW(nullptr));
}

bool TestWindow::MakeForeground() const {
    ::SetForegroundWindow(window_);
    return WaitFor([this] { return ::GetForegroundWindow() == window_; }, 2000);
}

LRESULT CALLBACK TestWindow::Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<TestWindow*>(::GetWindowLongPtrW(window, 0));
    if (message == WM_APPCOMMAND && self != nullptr) {
        self->appCommands_.push_back(GET_APPCOMMAND_LPARAM(lParam));
        return 0;  // not handled: the library goes on with its fall-backs
    }
    return ::DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace wbstest
