#pragma once
#include "browsers/netscape/Netscape7Constants.h"
#include "browsers/netscape/cNetscapeFamilyWebBrowser.h"
#include "favorites/cNetscape7FavoritesFinder.h"
#include "history/cNetscape7HistoryFinder.h"

// Netscape 7 as the default browser. Its windows are left as they are after a start.
class cNetscape7WebBrowser : public cNetscapeFamilyWebBrowser<Netscape7Constants, cNetscape7HistoryFinder,
                                                               cNetscape7FavoritesFinder, false> {
public:
    explicit cNetscape7WebBrowser(HWND window = nullptr);
};
