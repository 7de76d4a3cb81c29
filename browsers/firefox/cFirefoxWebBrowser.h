#pragma once
#include "browsers/cMozillaWebBrowser.h"
#include "browsers/firefox/FirefoxConstants.h"
#include "favorites/cFirefoxFavoritesFinder.h"
#include "history/cFirefoxHistoryFinder.h"

// Firefox: the Mozilla family's shortcuts and panels, an empty address bringing a running
// Firefox forward on its home page, and the program found under its "App Paths" registration.
class cFirefoxWebBrowser
    : public cMozillaWebBrowser<FirefoxConstants, cFirefoxHistoryFinder, cFirefoxFavoritesFinder> {
public:
    explicit cFirefoxWebBrowser(HWND window = nullptr);

    bool GoToWebAddress(const CStdStr& url) override;
    bool GetProgramPath(CStdStr& programPath, CStdStr& arguments) override;
};
