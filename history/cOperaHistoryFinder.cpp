#include "history/cOperaHistoryFinder.h"
#include <memory>
#include <string_view>
#include "browsers/opera/OperaProgramPath.h"
#include "favorites/cLineFile.h"

namespace {
// Capital O, unlike the driver's name: only the program's folder is used, so either finds the same file.
const wchar_t kProgramFile[] = L"Opera.exe";
const wchar_t kHistoryFile[] = L"\\Opera.dir";
}  // namespace

bool cOperaHistoryFinder::FindHistory(HistoryList& list) { return ReadHistoryFile(list); }

bool cOperaHistoryFinder::FindHistoryFile(CStdStr& path) {
    CStdStr programPath;
    if (!FindOperaProgramPath(kProgramFile, programPath)) return false;
    path = ProgramFolder(programPath) + kHistoryFile;
    return true;
}

bool cOperaHistoryFinder::ReadHistoryFile(HistoryList& list) {
    CStdStr path;
    if (!FindHistoryFile(path)) return false;
    const std::unique_ptr<cLineFile> file = cLineFile::Open(path);
    if (!file) return false;

    std::string_view bytes;
    if (file->Stream().good()) (void)file->ReadLine(bytes);  // the header line
    if (!file->Stream().good()) return false;
    // Tested after the append: the read that meets the end of the file is an entry too, empty after a last line feed.
    HistoryEntry entry;  // its text's storage serves every line; AddEntry copies it into the list
    do {
        (void)file->ReadLine(bytes);
        WidenBytes(bytes, entry.Text);
        AddEntry(list, entry);
    } while (file->Stream().good());
    return true;
}
