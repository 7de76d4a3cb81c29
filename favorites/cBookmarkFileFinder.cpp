#include "favorites/cBookmarkFileFinder.h"
#include "favorites/cLineFile.h"

bool cBookmarkFileFinder::GetFavorites(FavoritesList& list) {
    list.clear();
    // A missing bookmark file is an empty store, not a failure.
    (void)ReadBookmarkFile(list);
    return true;
}

bool cBookmarkFileFinder::ParseBookmarkLine(const wchar_t* line, CStdStr& entry) {
    if (line == nullptr) return false;
    TokenizeBookmarkLine(line, parsed_);
    switch (parsed_.kind) {
    case BookmarkLineKind::FolderStart:
        FolderStack.push_back(parsed_.name);
        entry = FolderStartText(parsed_.name);
        return true;
    case BookmarkLineKind::FolderEnd:
        // The document's own closing "</DL>" finds nothing open and gives no entry.
        if (FolderStack.empty()) return false;
        entry = FolderEndText(FolderStack.back());
        FolderStack.pop_back();
        return true;
    case BookmarkLineKind::Bookmark:
        entry = FavoriteText(parsed_.name, parsed_.url);
        return true;
    case BookmarkLineKind::Other:
        break;
    }
    return false;
}

std::unique_ptr<cLineFile> cBookmarkFileFinder::OpenBookmarkFile() {
    CStdStr path;
    return FindBookmarkFile(path) ? cLineFile::Open(path) : nullptr;
}

void cBookmarkFileFinder::AppendBookmarkLine(FavoritesList& list, std::string_view bytes, unsigned int codePage,
                                             std::wstring& line) {
    BytesToWide(bytes, codePage, line);
    CStdStr entry;
    if (ParseBookmarkLine(line.c_str(), entry)) list.Append(FavoriteEntry{std::move(entry), CStdStr()});
}
