#pragma once
#include "browsers/generic/cGenericWebBrowser.h"

// Google Chrome: shortcuts pressed into whatever window has the focus, F5, the generic application
// commands, and the page read from the address box of the window in front. Chrome has no DDE and
// no favorites this library can read.
class cChromeBrowser : public cGenericWebBrowser {
public:
    explicit cChromeBrowser(HWND window = nullptr) noexcept : cGenericWebBrowser(window) {}

    bool GoHome(bool toBrowserWindow) override;
    bool GoToWebAddress(const CStdStr& url) override;
    bool Refresh(bool toBrowserWindow) override;
    bool GetCurrentPage(PageInfo& out) override;
    bool ShowFavorites() override;

    // Chrome's own operations, in slots after the shared ones.
    // Both url and title become the address-box text; true even when there is no address box.
    virtual bool GetPageAddress(CStdStr& url, CStdStr& title);
    // The text of the foreground window's address box (at most 999 characters); false when the
    // foreground window has none.
    virtual bool ReadAddressBox(CStdStr& text);
};
