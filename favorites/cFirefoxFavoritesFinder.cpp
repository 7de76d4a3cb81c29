#include "favorites/cFirefoxFavoritesFinder.h"
#include <windows.h>
#include "favorites/MozillaProfile.h"
#include "favorites/cLineFile.h"

bool cFirefoxFavoritesFinder::ReadBookmarkFile(FavoritesList& list) {
    const std::unique_ptr<cLineFile> file = OpenBookmarkFile();
    if (!file) return false;
    try {
        // Firefox's reader meets the end of the file as the stream's failure exception, so a last
        // line without a newline ends the read unparsed.
        file->Stream().exceptions(std::ios::badbit | std::ios::failbit | std::ios::eofbit);
        std::string_view bytes;
        std::wstring line;
        while (file->Stream().good()) {
            if (file->ReadLine(bytes)) AppendBookmarkLine(list, bytes, CP_UTF8, line);
        }
    } catch (const std::ios_base::failure&) {
        // The end of the file, or a read fault: the entries so far are the answer.
    }
    return true;
}

bool cFirefoxFavoritesFinder::FindBookmarkFile(CStdStr& path) {
    return FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\bookmarks.html", path);
}
