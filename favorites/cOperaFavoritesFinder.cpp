#include "favorites/cOperaFavoritesFinder.h"
#include <windows.h>
#include <memory>
#include <string_view>
#include "browsers/opera/OperaConstants.h"
#include "browsers/opera/OperaProgramPath.h"
#include "favorites/HotlistRecord.h"
#include "favorites/MozillaProfile.h"
#include "favorites/cLineFile.h"

namespace {
const wchar_t kUserFolder[] = L"\\Opera";
const wchar_t kProfileFolder[] = L"\\Profile";
const wchar_t kHotlistFile[] = L"\\opera6.adr";

// The next line of the hotlist as wide text.
std::wstring NextLine(cLineFile& file) {
    std::string_view bytes;
    (void)file.ReadLine(bytes);
    return BytesToWide(bytes, CP_UTF8);
}
}  // namespace

bool cOperaFavoritesFinder::GetFavorites(FavoritesList& list) {
    list.clear();
    // A missing hotlist is an empty store, not a failure.
    (void)ReadHotlist(list);
    return true;
}

bool cOperaFavoritesFinder::ReadHotlist(FavoritesList& list) {
    CStdStr path;
    if (!FindHotlistFile(path)) return false;
    const std::unique_ptr<cLineFile> file = cLineFile::Open(path);
    if (!file) return false;
    try {
        // The end of the file arrives as an exception, so a record it cuts short and an unended last line are lost.
        file->Stream().exceptions(std::ios::badbit | std::ios::failbit | std::ios::eofbit);
        std::string_view bytes;
        std::wstring line;  // its storage serves every line
        while (file->Stream().good()) {
            if (!file->ReadLine(bytes)) continue;
            BytesToWide(bytes, CP_UTF8, line);
            (void)ParseHotlistLine(line.c_str(), *file, list);
        }
    } catch (const std::ios_base::failure&) {
        // The end of the file, a missing file or a read fault: the entries so far are the answer.
    }
    return true;
}

bool cOperaFavoritesFinder::FindHotlistFile(CStdStr& path) {
    CStdStr programPath;
    if (FindOperaProgramPath(OperaConstants::ProgramName.c_str(), programPath)) {
        path = ProgramFolder(programPath) + kProfileFolder + kHotlistFile;
        return true;
    }
    CStdStr appData;
    if (!GetAppDataFolder(appData)) return false;
    // Named after the program folder's last component, which is empty here: the profile sits right under "Opera".
    path = appData + kUserFolder + kProfileFolder + kHotlistFile;
    return true;
}

bool cOperaFavoritesFinder::ParseHotlistLine(const wchar_t* line, cLineFile& file, FavoritesList& list) {
    if (line == nullptr) return false;
    HotlistRecord record = ReadHotlistRecord(line, [&file] { return NextLine(file); });
    switch (record.kind) {
    case HotlistRecordKind::FolderStart:
        FolderStack.push_back(CStdStr(std::move(record.name)));
        AddFolderStart(list, FolderStack.back());
        return true;
    case HotlistRecordKind::FolderEnd: {
        // A "-" with nothing open gives no entry.
        if (FolderStack.empty()) return false;
        const CStdStr name = FolderStack.back();
        FolderStack.pop_back();
        AddFolderEnd(list, name);
        return true;
    }
    case HotlistRecordKind::Link:
        // The record's strings become the arguments as they are, without a copy.
        AddFavorite(list, CStdStr(std::move(record.name)), CStdStr(std::move(record.url)));
        return true;
    case HotlistRecordKind::Other:
        break;
    }
    return false;
}
