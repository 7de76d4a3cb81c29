#include "browsers/aol/cAOLWebBrowser.h"
#include <shellapi.h>
#include <vector>
#include "tovutil/CRegistry.h"
#include "tovutil/ForegroundAttentionGrabber.h"

namespace {
constexpr int kTitleChars = 2048;
constexpr unsigned short kFavoritesCode = 12;
constexpr unsigned short kToolbarItemCode = 3;
}  // namespace

bool cAOLWebBrowser::ReadProgramFolder(CStdStr& folder) {
    return CRegistry::ReadString(HKEY_LOCAL_MACHINE, RegistryKey.c_str(), AppPathValue.c_str(), folder) == ERROR_SUCCESS;
}

cAOLWebBrowser::cAOLWebBrowser(HWND window)
    : cGenericWebBrowser(window), toolbar(&cAOLToolbarCommander::TakeToolbarItem) {}

bool cAOLWebBrowser::ReadAddressCombo(CStdStr& text) {
    const HWND frame = ::FindWindowW(FrameClass.c_str(), nullptr);
    if (frame == nullptr) return false;
    const HWND outerBar = ::FindWindowExW(frame, nullptr, ToolbarClass.c_str(), nullptr);
    if (outerBar == nullptr) return false;
    const HWND innerBar = ::FindWindowExW(outerBar, nullptr, InnerToolbarClass.c_str(), nullptr);
    if (innerBar == nullptr) return false;
    const HWND comboBox = ::FindWindowExW(innerBar, nullptr, ComboClass.c_str(), nullptr);
    if (comboBox == nullptr) return false;
    const HWND edit = ::FindWindowExW(comboBox, nullptr, EditClass.c_str(), nullptr);
    if (edit == nullptr) return false;

    const LRESULT length = ::SendMessageW(edit, WM_GETTEXTLENGTH, 0, 0);
    if (length <= 0) return false;
    // The length comes from another program's window: an address is never near this long.
    constexpr LRESULT kLongestAddress = 65535;
    std::vector<wchar_t> buffer(static_cast<size_t>(length < kLongestAddress ? length : kLongestAddress) + 1, L'\0');
    const LRESULT copied = ::SendMessageW(edit, WM_GETTEXT, buffer.size(), reinterpret_cast<LPARAM>(buffer.data()));
    if (copied <= 0) return false;
    address = buffer.data();
    text = address;
    return true;
}

BOOL CALLBACK cAOLWebBrowser::TakeActiveTitle(HWND child, LPARAM lParam) {
    auto* browser = reinterpret_cast<cAOLWebBrowser*>(lParam);
    const HWND active = reinterpret_cast<HWND>(::SendMessageW(child, WM_MDIGETACTIVE, 0, 0));
    if (active != nullptr) {
        wchar_t text[kTitleChars] = {};
        if (::GetWindowTextW(active, text, kTitleChars) > 0) browser->title = text;
    }
    // Every child is asked, so the last one that answers gives the title.
    return TRUE;
}

bool cAOLWebBrowser::ReadDocumentTitle(CStdStr& text) {
    const HWND frame = ::FindWindowW(FrameClass.c_str(), nullptr);
    if (frame == nullptr) return false;
    if (!::EnumChildWindows(frame, &TakeActiveTitle, reinterpret_cast<LPARAM>(this)) || title.empty()) return false;
    text = title;
    return true;
}

bool cAOLWebBrowser::GetCurrentPage(PageInfo& out) {
    CStdStr addressText;
    CStdStr titleText;
    (void)ReadAddressCombo(addressText);
    (void)ReadDocumentTitle(titleText);
    // AOL's page record is filled crossed, the document title as the URL and the address as the
    // title; the hosts that show AOL's page read it that way.
    out.Url = titleText;
    out.Title = addressText;
    return true;
}

bool cAOLWebBrowser::GoToWebAddress(const CStdStr& url) {
    CStdStr arguments = AddressPrefix;
    // Lets the AOL program that is started take the foreground.
    ForegroundAttentionGrabber grabber;
    CStdStr folder;
    if (!ReadProgramFolder(folder)) return false;
    const CStdStr program = folder + LaunchSuffix;
    arguments += url;
    arguments += AddressSuffix;
    const HINSTANCE started =
        ::ShellExecuteW(nullptr, nullptr, program.c_str(), arguments.c_str(), nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(started) > 32;
}

bool cAOLWebBrowser::GetProgramPath(CStdStr& programPath, CStdStr& arguments) {
    arguments = AddressPrefix;
    CStdStr folder;
    if (!ReadProgramFolder(folder)) return false;
    programPath = folder + LaunchSuffix;
    return true;
}

bool cAOLWebBrowser::ShowFavorites() {
    toolbar.Execute(kFavoritesCode, 1, 0);
    toolbar.Execute(kFavoritesCode, 0, 0);
    return true;
}

bool cAOLWebBrowser::ActivateToolbarItem() {
    toolbar.Execute(kToolbarItemCode, 1, 0);
    toolbar.Execute(kToolbarItemCode, 0, 0);
    return true;
}

bool cAOLWebBrowser::GetFavorites(FavoritesList& out) { return favorites.GetFavorites(out); }

bool cAOLWebBrowser::GetHistory(HistoryList& out) { return history.FindHistory(out); }
