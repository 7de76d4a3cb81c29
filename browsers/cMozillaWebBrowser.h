#pragma once
#include "browsers/KeyRefresh.h"
#include "browsers/MozillaFamily.h"
#include "browsers/cNavigateUtility.h"
#include "browsers/generic/cGenericWebBrowser.h"
#include "favorites/cBrowserFavorites.h"
#include "input/CLegacyKeySender.h"

// The body every Mozilla-family driver shares (Firefox, Navigator, Netscape 7 and 8): navigation
// by Alt-key shortcuts and F5, the page asked over DDE, the side panels opened by mapped buttons,
// and the family's favorites and typed addresses. A driver adds how it opens an address and
// where its program is.
template <typename Constants, typename HistoryFinder, typename FavoritesFinder>
class cMozillaWebBrowser : public cGenericWebBrowser, public cNavigateUtility, public Constants {
public:
    // serviceName: the browser's DDE service; mappingName: its mapping file's name without ".QXM".
    cMozillaWebBrowser(HWND window, const CStdStr& serviceName, const CStdStr& mappingName)
        : cGenericWebBrowser(window), cNavigateUtility(serviceName) {
        keySender_.SetMappingFileBase(mappingName.c_str());
    }

    // The shortcuts go to whatever window has the focus: the arguments do not matter.
    bool Back(bool, IEventMgr*) override { return MozillaBack(); }
    bool Forward(bool, IEventMgr*) override { return MozillaForward(); }
    bool GoHome(bool) override { return MozillaGoHome(); }
    bool Refresh(bool) override { return KeyRefresh(); }
    bool GetCurrentPage(PageInfo& out) override { return CurrentPage(out); }
    bool ShowFavorites() override { return PressMappedButton(keySender_, MozillaButton::OpenFavorites); }
    bool GetFavorites(FavoritesList& out) override { return favorites_.GetFavorites(out); }
    bool ShowHistory() override { return PressMappedButton(keySender_, MozillaButton::History); }
    bool GetHistory(HistoryList& out) override { return history_.FindHistory(out); }

private:
    HistoryFinder history_;
    cBrowserFavorites<FavoritesFinder> favorites_;
    CLegacyKeySender keySender_;
};
