#include "browsers/chrome/cChromeBrowser.h"
#include "browsers/KeyRefresh.h"
#include "browsers/chrome/ChromeConstants.h"
#include "input/CZyPressKey.h"
#include "tovutil/ExecuteProgram.h"

namespace {
// Modifier down, key down, key up, modifier up; to whatever window has the focus, Chrome not
// activated first.
void PressShortcut(BYTE modifier, BYTE key) {
    CZyPressKey presser;
    presser.PressKey(modifier, 0);
    presser.PressKey(key, 0);
    presser.PressKey(key, KEYEVENTF_KEYUP);
    presser.PressKey(modifier, KEYEVENTF_KEYUP);
}

constexpr int kAddressBoxChars = 1000;
}  // namespace

bool cChromeBrowser::GoHome(bool) {
    PressShortcut(VK_MENU, VK_HOME);
    return true;
}

bool cChromeBrowser::GoToWebAddress(const CStdStr& url) {
    // The address is handed to the system's handler for it, not typed into Chrome.
    if (!url.empty()) return ExecuteProgram(url.c_str(), SW_SHOWNORMAL, false, nullptr);
    // Sent to the window under the pointer; the command counts as delivered whatever that window answers.
    (void)SendAppCommand(window, AppCommandHome, false);
    return true;
}

bool cChromeBrowser::Refresh(bool) { return KeyRefresh(); }

bool cChromeBrowser::ShowFavorites() {
    PressShortcut(VK_CONTROL, 'B');
    return true;
}

bool cChromeBrowser::GetCurrentPage(PageInfo& out) {
    CStdStr url, title;
    if (!GetPageAddress(url, title)) return false;
    // An equal text is left as it stands, code page included.
    if (out.Url != url) out.Url = url;
    if (out.Title != title) out.Title = title;
    return true;
}

bool cChromeBrowser::GetPageAddress(CStdStr& url, CStdStr& title) {
    CStdStr text;
    // No address box leaves the text empty, and an empty page is still a page.
    (void)ReadAddressBox(text);
    // Only the address box is read, so its text stands for the page's title as well as its URL.
    url = text;
    title = text;
    return true;
}

bool cChromeBrowser::ReadAddressBox(CStdStr& text) {
    // The window in front, not this driver's: the driver is often made without one.
    const HWND foreground = ::GetForegroundWindow();
    if (foreground == nullptr) return false;
    const HWND addressBox = ::FindWindowExW(foreground, nullptr, ChromeConstants::AddressBoxClass.c_str(), nullptr);
    if (addressBox == nullptr) return false;
    wchar_t buffer[kAddressBoxChars] = {};
    ::SendMessageW(addressBox, WM_GETTEXT, kAddressBoxChars, reinterpret_cast<LPARAM>(buffer));
    // A longer address is cut to what fits with its terminating zero.
    text = buffer;
    return true;
}
