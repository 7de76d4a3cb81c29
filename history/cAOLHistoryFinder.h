#pragma once
#include "CStdStr.h"
#include "HistoryList.h"
#include "history/iHistoryFinder.h"

// AOL's typed addresses: the records of the first "*.AUT" file in the Organize folder of the AOL
// program, each record whole in Text with Extra empty. The file is read as text (CR LF as LF) with
// its bytes widened one to one.
class cAOLHistoryFinder : public iHistoryFinder {
public:
    // True whatever was found.
    bool FindHistory(HistoryList& list) override;
    // The full path of the first "*.AUT" file (not directory) in the Organize folder.
    virtual bool FindHistoryFile(CStdStr& path);
    // Appends the file's records; a missing or unreadable file appends nothing.
    virtual void ReadHistoryFile(HistoryList& list);
};
