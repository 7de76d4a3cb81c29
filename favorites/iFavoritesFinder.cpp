#include "favorites/iFavoritesFinder.h"
#ifndef NDEBUG
#include <windows.h>
#endif

namespace {
void Append(FavoritesList& list, std::wstring text) { list.Append(FavoriteEntry{CStdStr(std::move(text)), CStdStr()}); }
}  // namespace

void iFavoritesFinder::AddFolderStart(FavoritesList& list, const CStdStr& name) { Append(list, L":Start<" + name + L">"); }

void iFavoritesFinder::AddFolderEnd(FavoritesList& list, const CStdStr& name) { Append(list, L":End<" + name + L">"); }

void iFavoritesFinder::AddFavorite(FavoritesList& list, const CStdStr& name, const CStdStr& url) {
    // The trace goes to the debugger in debug builds only.
    const std::wstring trace = L"Adding favorite [" + name + L"]<" + url + L">";
#ifndef NDEBUG
    ::OutputDebugStringW((trace + L"\n").c_str());
#else
    (void)trace;
#endif
    Append(list, name + L"<" + url + L">");
}
