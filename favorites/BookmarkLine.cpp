#include "favorites/BookmarkLine.h"
#include <cwctype>
#include "favorites/TextCuts.h"

namespace {
const wchar_t kFolderStart[] = L"<DT><H3";
const wchar_t kFolderEnd[] = L"</DL>";
const wchar_t kBookmark[] = L"<DT><A HREF=";

// The HREF value of a bookmark line that does not quote it: from after "=" (past a lone opening
// quote) up to the first white space or ">".
std::wstring UnquotedHref(std::wstring_view trimmed) {
    std::wstring_view::size_type begin = std::wstring_view(kBookmark).size();
    if (begin < trimmed.size() && trimmed[begin] == L'"') ++begin;
    std::wstring_view::size_type end = begin;
    while (end < trimmed.size() && trimmed[end] != L'>' && std::iswspace(static_cast<std::wint_t>(trimmed[end])) == 0)
        ++end;
    return std::wstring(trimmed.substr(begin, end - begin));
}
}  // namespace

BookmarkLine TokenizeBookmarkLine(std::wstring_view line) {
    BookmarkLine parsed;
    std::wstring_view::size_type first = 0;
    while (first < line.size() && std::iswspace(static_cast<std::wint_t>(line[first])) != 0) ++first;
    const std::wstring_view trimmed = line.substr(first);
    if (trimmed.empty()) return parsed;

    if (StartsWithNoCase(trimmed, kFolderStart)) {
        parsed.kind = BookmarkLineKind::FolderStart;
        parsed.name = StripTags(line);
    } else if (StartsWithNoCase(trimmed, kFolderEnd)) {
        parsed.kind = BookmarkLineKind::FolderEnd;
    } else if (StartsWithNoCase(trimmed, kBookmark)) {
        parsed.kind = BookmarkLineKind::Bookmark;
        // Only the line's first quoted value is read: in this format it is always the HREF.
        const std::wstring_view::size_type open = line.find(L'"');
        const std::wstring_view::size_type close = open == std::wstring_view::npos ? open : line.find(L'"', open + 1);
        parsed.url = close == std::wstring_view::npos ? UnquotedHref(trimmed)
                                                      : std::wstring(line.substr(open + 1, close - open - 1));
        parsed.name = StripTags(line);
    }
    return parsed;
}

std::wstring FolderStartText(const std::wstring& name) { return L":Start<" + name + L">"; }

std::wstring FolderEndText(const std::wstring& name) { return L":End<" + name + L">"; }

std::wstring FavoriteText(const std::wstring& name, const std::wstring& url) {
    std::wstring text;
    text.reserve(name.size() + url.size() + 2);
    return text.append(name).append(1, L'<').append(url).append(1, L'>');
}
