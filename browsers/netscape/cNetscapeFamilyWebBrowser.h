#pragma once
#include "browsers/cMozillaWebBrowser.h"
#include "browsers/netscape/NetscapeNavigation.h"

// The body the three Netscape drivers share: the Mozilla family's commands, addresses pasted into
// a Netscape in front or given to a newly started one, and the markup class's program path.
// RestoreAfterStart: whether a Mozilla window is told to restore itself after the program starts.
template <typename Constants, typename HistoryFinder, typename FavoritesFinder, bool RestoreAfterStart>
class cNetscapeFamilyWebBrowser : public cMozillaWebBrowser<Constants, HistoryFinder, FavoritesFinder> {
public:
    cNetscapeFamilyWebBrowser(HWND window, const CStdStr& serviceName)
        : cMozillaWebBrowser<Constants, HistoryFinder, FavoritesFinder>(window, serviceName, Constants::MappingName) {}

    bool GoToWebAddress(const CStdStr& url) override {
        return NetscapeGoToWebAddress(Constants::ProgramName, url, RestoreAfterStart);
    }
    // The arguments are left as they were.
    bool GetProgramPath(CStdStr& programPath, CStdStr&) override { return NetscapeProgramPath(programPath); }
};
