#pragma once
#include <string>
#include <string_view>

// One line of a bookmarks.html file, recognised by its first characters (leading white space
// skipped, case ignored): "<DT><H3" opens a folder, "</DL>" closes one, "<DT><A HREF=" is a
// bookmark. Every other line is Other.
enum class BookmarkLineKind { Other, FolderStart, FolderEnd, Bookmark };

struct BookmarkLine {
    BookmarkLineKind kind = BookmarkLineKind::Other;
    std::wstring name;  // FolderStart and Bookmark: the whole line with every tag stripped
    std::wstring url;   // Bookmark: the line's first double-quoted value, its HREF
};

BookmarkLine TokenizeBookmarkLine(std::wstring_view line);
// The same into parsed, whose strings' storage serves line after line.
void TokenizeBookmarkLine(std::wstring_view line, BookmarkLine& parsed);

// The encoded entries of the favorites list.
std::wstring FolderStartText(const std::wstring& name);
std::wstring FolderEndText(const std::wstring& name);
std::wstring FavoriteText(const std::wstring& name, const std::wstring& url);
