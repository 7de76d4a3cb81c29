#include "favorites/BookmarkLine.h"
#include "favorites/TextCuts.h"

namespace {
const wchar_t kFolderStart[] = L"<DT><H3";
const wchar_t kFolderEnd[] = L"</DL>";
const wchar_t kBookmark[] = L"<DT><A HREF=";

// The HREF value of a bookmark line that does not quote it: from after "=" (past a lone opening
// quote) up to the first white space or ">".
std::wstring_view UnquotedHref(std::wstring_view trimmed) {
    std::wstring_view::size_type begin = std::wstring_view(kBookmark).size();
    if (begin < trimmed.size() && trimmed[begin] == L'"') ++begin;
    std::wstring_view::size_type end = begin;
    while (end < trimmed.size() && trimmed[end] != L'>' && !IsSpace(trimmed[end])) ++end;
    return trimmed.substr(begin, end - begin);
}

// before + inner + ">", in one allocation of the exact size.
std::wstring Enclosed(std::wstring_view before, const std::wstring& inner) {
    std::wstring text;
    text.reserve(before.size() + inner.size() + 1);
    text.append(before).append(inner).append(1, L'>');
    return text;
}
}  // namespace

BookmarkLine TokenizeBookmarkLine(std::wstring_view line) {
    BookmarkLine parsed;
    TokenizeBookmarkLine(line, parsed);
    return parsed;
}

void TokenizeBookmarkLine(std::wstring_view line, BookmarkLine& parsed) {
    parsed.kind = BookmarkLineKind::Other;
    parsed.name.clear();
    parsed.url.clear();
    std::wstring_view::size_type first = 0;
    while (first < line.size() && IsSpace(line[first])) ++first;
    const std::wstring_view trimmed = line.substr(first);
    if (trimmed.empty()) return;

    if (StartsWithNoCase(trimmed, kFolderStart)) {
        parsed.kind = BookmarkLineKind::FolderStart;
        StripTags(line, parsed.name);
    } else if (StartsWithNoCase(trimmed, kFolderEnd)) {
        parsed.kind = BookmarkLineKind::FolderEnd;
    } else if (StartsWithNoCase(trimmed, kBookmark)) {
        parsed.kind = BookmarkLineKind::Bookmark;
        // Only the line's first quoted value is read: in this format it is always the HREF.
        const std::wstring_view::size_type open = line.find(L'"');
        const std::wstring_view::size_type close = open == std::wstring_view::npos ? open : line.find(L'"', open + 1);
        parsed.url.assign(close == std::wstring_view::npos ? UnquotedHref(trimmed)
                                                           : line.substr(open + 1, close - open - 1));
        StripTags(line, parsed.name);
    }
}

std::wstring FolderStartText(const std::wstring& name) { return Enclosed(L":Start<", name); }

std::wstring FolderEndText(const std::wstring& name) { return Enclosed(L":End<", name); }

std::wstring FavoriteText(const std::wstring& name, const std::wstring& url) {
    std::wstring text;
    text.reserve(name.size() + url.size() + 2);
    text.append(name).append(1, L'<').append(url).append(1, L'>');
    return text;
}
