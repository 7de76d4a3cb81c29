#pragma once
#include "browsers/netscape/NetscapeConstants.h"
#include "browsers/netscape/cNetscapeFamilyWebBrowser.h"
#include "favorites/cNetscapeFavoritesFinder.h"
#include "history/cNetscapeHistoryFinder.h"

// Netscape Navigator, and any Netscape default browser that is not version 7.
class cNetscapeWebBrowser
    : public cNetscapeFamilyWebBrowser<NetscapeConstants, cNetscapeHistoryFinder, cNetscapeFavoritesFinder, true> {
public:
    explicit cNetscapeWebBrowser(HWND window = nullptr);
};
