#pragma once
#include "history/iHistoryFinder.h"

// Internet Explorer's typed addresses: the values of the user's TypedURLs key, value name in Text
// and address in Extra, in registry order.
class cIEHistoryFinder : public iHistoryFinder {
public:
    // True whatever was found.
    bool FindHistory(HistoryList& list) override;
};
