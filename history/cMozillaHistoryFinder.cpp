#include "history/cMozillaHistoryFinder.h"
#include "favorites/cLineFile.h"
#include "history/ElementText.h"

bool cMozillaHistoryFinder::FindHistory(HistoryList& list) {
    ReadHistoryFile(list);
    return true;
}

std::unique_ptr<cLineFile> cMozillaHistoryFinder::OpenHistoryFile() {
    CStdStr path;
    return FindHistoryFile(path) ? cLineFile::Open(path) : nullptr;
}

bool cMozillaHistoryFinder::ExtractElementText(wchar_t* line, CStdStr& text) {
    if (line == nullptr) return false;
    std::optional<std::wstring> found = ::ExtractElementText(line);
    if (!found) return false;
    text = std::move(*found);
    return true;
}
