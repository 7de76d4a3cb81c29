#pragma once
#include "browsers/cNavigateUtility.h"
#include "browsers/generic/cGenericWebBrowser.h"
#include "browsers/opera/OperaConstants.h"
#include "favorites/cBrowserFavorites.h"
#include "favorites/cOperaFavoritesFinder.h"
#include "history/cOperaHistoryFinder.h"
#include "input/CLegacyKeySender.h"

// Opera: the generic application commands, every address opened by starting the Opera program
// with it (never over DDE), its main window raised for an empty address, the program found
// through "App Paths" or the plug-in folder, and the panels opened by mapped buttons.
class cOperaWebBrowser : public cGenericWebBrowser, public cNavigateUtility, public OperaConstants {
public:
    explicit cOperaWebBrowser(HWND window = nullptr);

    bool GoToWebAddress(const CStdStr& url) override;
    bool GetCurrentPage(PageInfo& out) override;
    bool ShowFavorites() override;
    bool GetFavorites(FavoritesList& out) override;
    bool ShowHistory() override;
    bool GetHistory(HistoryList& out) override;
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override;

    // Starts a new Opera with url on its command line, whether or not one is running. The window
    // argument is not used.
    bool OpenURL(HWND window, const CStdStr& url) override;

private:
    // Restores Opera's main window (or its other top-level window, when that one is minimised)
    // and makes the main window the foreground window; false without a main window.
    static bool RaiseOpera();

    cOperaHistoryFinder history_;
    cBrowserFavorites<cOperaFavoritesFinder> favorites_;
    CLegacyKeySender keySender_;
};
