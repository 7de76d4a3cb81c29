#include "favorites/cAOLFavoritesFinder.h"
#include <windows.h>
#include <algorithm>
#include <string>
#include "core/ScopedFileHandle.h"
#include "favorites/AOLFavoritesRecord.h"
#include "favorites/cLineFile.h"
#include "history/AOLOrganizeFile.h"

namespace {
// "*." is meant to list the names without an extension, but not every file system takes it so
// (Wine lists every name), so names with a dot are also skipped by hand.
const wchar_t kFavoritesPattern[] = L"\\Organize\\*.";
constexpr DWORD kReadBufferSize = 2048;
// A favorites file is small; past this size the rest is not read, so memory stays bounded.
constexpr LONGLONG kLargestFile = 64 << 20;

// The whole file, taken a buffer at a time; a read fault ends it with what came before.
bool ReadAllBytes(const CStdStr& path, std::string& bytes) {
    ScopedFileHandle file(::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return false;
    DWORD read = 0;
    // The size the file has now is taken in one read; the loop takes whatever it has gained since.
    LARGE_INTEGER size = {};
    if (::GetFileSizeEx(file.get(), &size) && size.QuadPart > 0) {
        bytes.resize(static_cast<std::size_t>(std::min(size.QuadPart, kLargestFile)));
        if (!::ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr)) read = 0;
        bytes.resize(read);
    }
    char buffer[kReadBufferSize];
    while (bytes.size() < static_cast<std::size_t>(kLargestFile) &&
           ::ReadFile(file.get(), buffer, kReadBufferSize, &read, nullptr) && read > 0)
        bytes.append(buffer, read);
    return true;
}
}  // namespace

bool cAOLFavoritesFinder::GetFavorites(FavoritesList& list) {
    list.clear();
    // A missing file is an empty store, not a failure.
    (void)ReadFavoritesFile(list);
    return true;
}

bool cAOLFavoritesFinder::FindFavoritesFile(CStdStr& path) { return FindAOLOrganizeFile(kFavoritesPattern, true, path); }

bool cAOLFavoritesFinder::ReadFavoritesFile(FavoritesList& list) {
    CStdStr path;
    if (!FindFavoritesFile(path)) return false;
    std::string bytes;
    if (!ReadAllBytes(path, bytes)) return false;
    for (const AOLFavoritesRecord& record : ReadAOLFavoritesRecords(bytes)) {
        const CStdStr name(BytesToWide(record.name, CP_UTF8));
        switch (record.kind) {
        case AOLFavoritesRecordKind::FolderStart:
            AddFolderStart(list, name);
            break;
        case AOLFavoritesRecordKind::FolderEnd:
            AddFolderEnd(list, name);
            break;
        case AOLFavoritesRecordKind::Link:
            AddFavorite(list, name, CStdStr(BytesToWide(record.url, CP_UTF8)));
            break;
        }
    }
    return true;
}
