#pragma once
#include "history/cMozillaHistoryFinder.h"

// Navigator's and Netscape 8's typed addresses: the "urlbar-history" sequence of the current
// Navigator user's localstore.rdf under "Netscape\NSB\Profiles", lower-cased.
class cNetscapeHistoryFinder : public cMozillaHistoryFinder {
public:
    bool FindHistoryFile(CStdStr& path) override;
    void ReadHistoryFile(HistoryList& list) override;

protected:
    // The profile scan both Netscape finders run; profilesRoot begins and ends with a backslash.
    static bool FindNavigatorProfileFile(const wchar_t* profilesRoot, CStdStr& path);
};
