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
    const std::optional<std::wstring_view> found = ElementTextIn(line);
    if (!found) return false;
    // Assigned into what text holds, so a text kept from line to line needs no new storage.
    text.assign(found->data(), found->size());
    return true;
}
