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
    std::wstring line;    // its storage serves every line
    HistoryEntry entry;   // so does its text's; AddEntry copies it into the list
    while (file->Stream().good()) {
        if (!file->ReadLine(bytes)) break;
        WidenBytes(bytes, line);
        if (ExtractElementText(line.data(), entry.Text)) AddEntry(list, entry);
    }
}
