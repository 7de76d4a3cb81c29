#include "favorites/cNetscapeFavoritesFinder.h"
#include <windows.h>
#include "favorites/MozillaProfile.h"
#include "favorites/cLineFile.h"

bool cNetscapeFavoritesFinder::ReadBookmarkFile(FavoritesList& list) {
    const std::unique_ptr<cLineFile> file = OpenBookmarkFile();
    if (!file) return false;
    std::string_view bytes;
    std::wstring line;
    while (file->Stream().good()) {
        if (file->ReadLine(bytes)) AppendBookmarkLine(list, bytes, CP_ACP, line);
    }
    return true;
}

bool cNetscapeFavoritesFinder::FindBookmarkFile(CStdStr& path) {
    return FindProfileFile(L"\\Netscape\\NSB\\Profiles\\", L"\\bookmarks.html", path);
}
