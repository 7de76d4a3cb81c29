#pragma once
#include "CStdStr.h"
#include "EntryList.h"

// One typed address; what Text and Extra hold depends on the browser's history finder.
struct HistoryEntry {
    CStdStr Text;
    CStdStr Extra;
};

class HistoryList : public EntryList<HistoryEntry> {};
