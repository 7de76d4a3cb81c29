#pragma once
#include "browsers/aol/AOLConstants.h"
#include "browsers/aol/cAOLToolbarCommander.h"
#include "browsers/generic/cGenericWebBrowser.h"
#include "favorites/cAOLFavoritesFinder.h"
#include "favorites/cBrowserFavorites.h"
#include "history/cAOLHistoryFinder.h"

// The AOL client: the page read from the active MDI document and the toolbar's address box,
// addresses opened by starting the AOL program with them, the favorites shown through the
// toolbar, and AOL's own favorites and typed addresses.
class cAOLWebBrowser : public cGenericWebBrowser, public AOLConstants {
public:
    explicit cAOLWebBrowser(HWND window = nullptr);

    bool GoToWebAddress(const CStdStr& url) override;
    bool GetCurrentPage(PageInfo& out) override;
    bool ShowFavorites() override;
    bool GetFavorites(FavoritesList& out) override;
    bool GetHistory(HistoryList& out) override;
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override;
    // Toolbar command 3, pressed and released.
    virtual bool ActivateToolbarItem();

    // The AOL program folder, HKLM's "AppPath"; false, with folder left as it was, when it is not
    // registered.
    static bool ReadProgramFolder(CStdStr& folder);

private:
    // The address box's text into address and text; false when the box is missing or empty.
    bool ReadAddressCombo(CStdStr& text);
    // The active document's title into title (the last frame child that answers wins) and text;
    // false when no document answered with a title.
    bool ReadDocumentTitle(CStdStr& text);
    static BOOL CALLBACK TakeActiveTitle(HWND child, LPARAM lParam);

    CStdStr title;
    CStdStr address;
    cAOLHistoryFinder history;
    cBrowserFavorites<cAOLFavoritesFinder> favorites;
    cAOLToolbarCommander toolbar;
};
