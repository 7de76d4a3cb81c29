#pragma once
#include <memory>
#include "CStdStr.h"
#include "HistoryList.h"
#include "history/iHistoryFinder.h"

class cLineFile;

// What the Mozilla-family URL-bar history readers share: a profile's localstore.rdf, read line by
// line, each element written on one line giving its text. Addresses go in Text; Extra stays empty.
class cMozillaHistoryFinder : public iHistoryFinder {
public:
    // Reads the history file into list and answers true whatever was read.
    bool FindHistory(HistoryList& list) override;
    virtual ~cMozillaHistoryFinder() = default;
    // The full path of this browser's localstore.rdf.
    virtual bool FindHistoryFile(CStdStr& path) = 0;
    virtual void ReadHistoryFile(HistoryList& list) = 0;
    // The text between the line's first ">" and its last "<"; false for a null line or when that
    // "<" does not come after the ">". line is left as it was.
    virtual bool ExtractElementText(wchar_t* line, CStdStr& text);

protected:
    // This browser's history file ready to be read line by line; null when there is none or its
    // line buffer cannot be had.
    std::unique_ptr<cLineFile> OpenHistoryFile();

    cMozillaHistoryFinder() = default;
    cMozillaHistoryFinder(const cMozillaHistoryFinder&) = default;
    cMozillaHistoryFinder& operator=(const cMozillaHistoryFinder&) = default;
};
