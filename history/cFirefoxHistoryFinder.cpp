#include "history/cFirefoxHistoryFinder.h"
#include "favorites/MozillaProfile.h"
#include "favorites/cLineFile.h"

bool cFirefoxHistoryFinder::FindHistoryFile(CStdStr& path) {
    return FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\localstore.rdf", path);
}

void cFirefoxHistoryFinder::ReadHistoryFile(HistoryList& list) {
    const std::unique_ptr<cLineFile> file = OpenHistoryFile();
    if (!file) return;
    // Every element written on one line anywhere in the file counts, not only the URL bar's.
    std::string_view bytes;
    std::wstring line;  // its storage serves every line
    while (file->Stream().good()) {
        if (!file->ReadLine(bytes)) break;
        WidenBytes(bytes, line);
        CStdStr text;
        if (ExtractElementText(line.data(), text)) AddEntry(list, HistoryEntry{std::move(text), CStdStr()});
    }
}
