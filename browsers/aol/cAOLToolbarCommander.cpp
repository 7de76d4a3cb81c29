#include "browsers/aol/cAOLToolbarCommander.h"
#include "browsers/aol/AOLConstants.h"
#include "core/ScopedThreadInput.h"
#include "tovutil/SendKeys.h"

namespace {
// A click lands at point (5,5) of the button, with the left button down.
constexpr WPARAM kLeftButtonDown = MK_LBUTTON;
constexpr LPARAM kClickPoint = MAKELPARAM(5, 5);

// The frame's own commands behind codes 9, 10 and 11.
constexpr WPARAM kFrameCommand9 = 7172;
constexpr WPARAM kFrameCommand10 = 7169;
constexpr WPARAM kFrameCommand11 = 7190;

// The walk stops at the last button position it needs.
constexpr LONG kLastItemPosition = 48;
}  // namespace

cAOLToolbarCommander::cAOLToolbarCommander(WNDENUMPROC callback) noexcept
    : frame(nullptr), toolbar(nullptr), innerToolbar(nullptr), combo(nullptr), item48(nullptr), item9(nullptr),
      item22(nullptr), item23(nullptr), item24(nullptr), item25(nullptr), item33(nullptr), itemSpareA(nullptr),
      itemSpareB(nullptr), count(0), callback(callback) {}

void cAOLToolbarCommander::Locate() {
    // Each window is looked for only when its parent was found; the ones below a missing window
    // keep what an earlier search found.
    frame = ::FindWindowExW(nullptr, nullptr, AOLConstants::FrameClass.c_str(), nullptr);
    if (frame == nullptr) return;
    toolbar = ::FindWindowExW(frame, nullptr, AOLConstants::ToolbarClass.c_str(), nullptr);
    if (toolbar == nullptr) return;
    innerToolbar = ::FindWindowExW(toolbar, nullptr, AOLConstants::InnerToolbarClass.c_str(), nullptr);
    if (innerToolbar == nullptr) return;
    combo = ::FindWindowExW(innerToolbar, nullptr, AOLConstants::ComboClass.c_str(), nullptr);
    if (combo == nullptr) return;

    item48 = item9 = item22 = item23 = item24 = item25 = item33 = itemSpareA = itemSpareB = nullptr;
    count = 0;
    ::EnumChildWindows(innerToolbar, callback, reinterpret_cast<LPARAM>(this));
}

BOOL CALLBACK cAOLToolbarCommander::TakeToolbarItem(HWND window, LPARAM lParam) {
    auto* commander = reinterpret_cast<cAOLToolbarCommander*>(lParam);
    // The buttons sit at fixed positions among the toolbar's descendants in AOL 8 and 9.
    switch (++commander->count) {
    case 9: commander->item9 = window; break;
    case 22: commander->item22 = window; break;
    case 23: commander->item23 = window; break;
    case 24: commander->item24 = window; break;
    case 25: commander->item25 = window; break;
    case 33: commander->item33 = window; break;
    case kLastItemPosition: commander->item48 = window; return FALSE;
    default: break;
    }
    return TRUE;
}

void cAOLToolbarCommander::PostToFrame(WPARAM wParam, LPARAM lParam) const {
    if (frame != nullptr && ::IsWindow(frame)) ::PostMessageW(frame, WM_COMMAND, wParam, lParam);
}

void cAOLToolbarCommander::PostToToolbar(WPARAM wParam, LPARAM lParam) const {
    if (innerToolbar != nullptr && ::IsWindow(innerToolbar)) ::PostMessageW(innerToolbar, WM_COMMAND, wParam, lParam);
}

// Clicks are posted whether or not the button was found: one posted to no window lands in this
// thread's own queue with nothing to reach.
void cAOLToolbarCommander::Click(HWND window) { ::PostMessageW(window, WM_LBUTTONDOWN, kLeftButtonDown, kClickPoint); }

void cAOLToolbarCommander::ClickUp(HWND window) { ::PostMessageW(window, WM_LBUTTONUP, 0, kClickPoint); }

int cAOLToolbarCommander::Execute(unsigned short code, int pressed, int repeated) {
    if (pressed == 0) {
        SendKeys_ReleaseAll();
        return 0;
    }
    if (repeated == 0) Locate();

    switch (code) {
    case 1: {
        ::SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
        // The focus can only be set into the frame's thread while attached to its input, and
        // the attachment goes again at once.
        ScopedThreadInput attached(::GetWindowThreadProcessId(frame, nullptr));
        ::SetFocus(combo);
        break;
    }
    case 2: PostToToolbar(0, reinterpret_cast<LPARAM>(itemSpareA)); break;
    case 3: PostToToolbar(0, reinterpret_cast<LPARAM>(item33)); break;
    case 4: SendKeys(L"^p"); break;
    case 5: SendKeys(L"%{Left}"); break;
    case 6: SendKeys(L"%{Right}"); break;
    case 7:
        Click(item24);
        ClickUp(item24);
        break;
    case 8: PostToToolbar(0, reinterpret_cast<LPARAM>(item25)); break;
    case 9:
        Click(item9);
        PostToFrame(kFrameCommand9, 0);
        SendKeys(L"{Esc}");
        break;
    case 10:
        Click(itemSpareB);
        PostToFrame(kFrameCommand10, 0);
        SendKeys(L"{Esc}");
        break;
    case 11:
        Click(item48);
        PostToFrame(kFrameCommand11, 0);
        SendKeys(L"{Esc}");
        break;
    case 12:
        // Sent, not posted: the button has taken the press before the space key confirms it.
        ::SendMessageW(item48, WM_LBUTTONDOWN, kLeftButtonDown, kClickPoint);
        ::keybd_event(VK_SPACE, 0, 0, 0);
        ::keybd_event(VK_SPACE, 0, KEYEVENTF_KEYUP, 0);
        break;
    case 13: SendKeys(L"{Tab}"); break;
    // Held while the user holds the button, so the selection auto-repeats; the release lets go.
    case 14: SendKeys(L"[{Up}]"); break;
    case 15: SendKeys(L"[{Down}]"); break;
    default: return 0;
    }
    return 1;
}
