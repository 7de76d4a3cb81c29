#pragma once
#include "browsers/netscape/Netscape8Constants.h"
#include "browsers/netscape/cNetscapeFamilyWebBrowser.h"
#include "favorites/cNetscapeFavoritesFinder.h"
#include "history/cNetscapeHistoryFinder.h"

// Netscape 8 in front; it keeps Navigator's favorites and typed addresses.
class cNetscape8WebBrowser
    : public cNetscapeFamilyWebBrowser<Netscape8Constants, cNetscapeHistoryFinder, cNetscapeFavoritesFinder, true> {
public:
    explicit cNetscape8WebBrowser(HWND window = nullptr);
};
