#include "favorites/iFavoritesFinder.h"
#include <initializer_list>
#include <string_view>
#ifndef NDEBUG
#include <windows.h>
#endif

namespace {
// Appends the entry whose text is the pieces one after the other, made in one allocation of the
// exact size and moved into the list.
void Append(FavoritesList& list, std::initializer_list<std::wstring_view> pieces) {
    std::wstring::size_type size = 0;
    for (const std::wstring_view piece : pieces) size += piece.size();
    CStdStr text;
    text.reserve(size);
    for (const std::wstring_view piece : pieces) text.append(piece);
    list.Append(FavoriteEntry{std::move(text), CStdStr()});
}
}  // namespace

void iFavoritesFinder::AddFolderStart(FavoritesList& list, const CStdStr& name) { Append(list, {L":Start<", name, L">"}); }

void iFavoritesFinder::AddFolderEnd(FavoritesList& list, const CStdStr& name) { Append(list, {L":End<", name, L">"}); }

void iFavoritesFinder::AddFavorite(FavoritesList& list, const CStdStr& name, const CStdStr& url) {
#ifndef NDEBUG
    // The trace goes to the debugger in debug builds only; a release build does not compose it.
    ::OutputDebugStringW((L"Adding favorite [" + name + L"]<" + url + L">\n").c_str());
#endif
    Append(list, {name, L"<", url, L">"});
}
