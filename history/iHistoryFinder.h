#pragma once
#include "HistoryList.h"

// One browser's typed-address reader. Finders only append: they never clear, sort or
// de-duplicate the caller's list.
class iHistoryFinder {
public:
    virtual bool FindHistory(HistoryList& list) = 0;
    virtual void AddEntry(HistoryList& list, const HistoryEntry& entry) { list.Append(entry); }

protected:
    // Finders are owned by value by their drivers, never deleted through this interface.
    ~iHistoryFinder() = default;
};
