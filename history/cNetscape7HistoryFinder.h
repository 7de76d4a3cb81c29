#pragma once
#include "history/cNetscapeHistoryFinder.h"

// Netscape 7's typed addresses: read as Navigator's are, from the current Navigator user's
// profile under "Mozilla\Profiles".
class cNetscape7HistoryFinder : public cNetscapeHistoryFinder {
public:
    bool FindHistoryFile(CStdStr& path) override;
};
