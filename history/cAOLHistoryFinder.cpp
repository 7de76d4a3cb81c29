#include "history/cAOLHistoryFinder.h"
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include "favorites/cLineFile.h"
#include "history/AOLOrganizeFile.h"

namespace {
const wchar_t kHistoryPattern[] = L"\\Organize\\*.AUT";
// The file declares its own record separator: the last of these leading characters, whatever it is.
constexpr std::streamsize kHeaderLength = 12;
}  // namespace

bool cAOLHistoryFinder::FindHistory(HistoryList& list) {
    ReadHistoryFile(list);
    return true;
}

bool cAOLHistoryFinder::FindHistoryFile(CStdStr& path) { return FindAOLOrganizeFile(kHistoryPattern, false, path); }

void cAOLHistoryFinder::ReadHistoryFile(HistoryList& list) {
    CStdStr path;
    if (!FindHistoryFile(path)) return;
    const std::unique_ptr<cLineFile> file = cLineFile::Open(path);
    if (!file) return;
    std::istream& stream = file->Stream();

    char header[kHeaderLength] = {};
    // A file shorter than its header leaves the stream failed, and nothing is read.
    stream.read(header, kHeaderLength);
    if (!stream.good()) return;
    const char separator = header[kHeaderLength - 1];
    // No record is longer than the file, which is the size of the file's line buffer: a string
    // that grows as it is read gives the same records.
    std::string record;
    HistoryEntry entry;  // its text's storage serves every record; AddEntry copies it into the list
    // Tested after the append: the read that meets the end of the file is an entry too, empty
    // after a last separator.
    do {
        std::getline(stream, record, separator);
        // A record ends at its first NUL, as a line does.
        WidenBytes(std::string_view(record).substr(0, record.find('\0')), entry.Text);
        AddEntry(list, entry);
    } while (stream.good());
}
