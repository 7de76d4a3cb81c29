#pragma once
#include "CStdStr.h"
#include "HistoryList.h"
#include "history/iHistoryFinder.h"

// Opera's typed addresses: the lines of "Opera.dir" beside the Opera program after its header
// line, each address whole in Text with Extra empty.
class cOperaHistoryFinder : public iHistoryFinder {
public:
    // True when at least one entry was appended.
    bool FindHistory(HistoryList& list) override;
    virtual ~cOperaHistoryFinder() = default;
    // The full path of "Opera.dir"; whether the file is there is not looked at.
    virtual bool FindHistoryFile(CStdStr& path);
    virtual bool ReadHistoryFile(HistoryList& list);
};
