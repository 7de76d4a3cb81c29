#pragma once
#include "browsers/cNavigateUtility.h"
#include "browsers/generic/cGenericWebBrowser.h"
#include "browsers/ie/InternetExplorerConstants.h"
#include "favorites/cBrowserFavorites.h"
#include "favorites/cIEFavoritesFinder.h"
#include "history/cIEHistoryFinder.h"

// Internet Explorer (and Explorer folder windows for back, forward and refresh): the generic
// commands, the browser brought forward for an empty address, the program found through its
// automation ProgID, and the page, favorites and typed addresses it keeps.
class cIEWebBrowser : public cGenericWebBrowser, public cNavigateUtility, public InternetExplorerConstants {
public:
    explicit cIEWebBrowser(HWND window = nullptr);

    bool GoToWebAddress(const CStdStr& url) override;
    bool GetCurrentPage(PageInfo& out) override;
    bool GetFavorites(FavoritesList& out) override;
    bool GetHistory(HistoryList& out) override;
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override;

private:
    cBrowserFavorites<cIEFavoritesFinder> favorites_;
    cIEHistoryFinder history_;
};
