#pragma once
#include "history/cMozillaHistoryFinder.h"

// Firefox's typed addresses: every one-line element of the first Firefox profile's localstore.rdf,
// its bytes widened one to one and its case kept.
class cFirefoxHistoryFinder : public cMozillaHistoryFinder {
public:
    bool FindHistoryFile(CStdStr& path) override;
    void ReadHistoryFile(HistoryList& list) override;
};
