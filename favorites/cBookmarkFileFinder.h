#pragma once
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include "CStdStr.h"
#include "FavoritesList.h"
#include "favorites/BookmarkLine.h"
#include "favorites/iFavoritesFinder.h"

class cLineFile;

// What the Firefox and Netscape-family bookmark readers share: a bookmarks.html file located in a
// profile, read line by line, each folder heading, folder end and bookmark line turned into an
// already encoded entry.
class cBookmarkFileFinder : public iFavoritesFinder {
public:
    // Clears list, reads the bookmark file and answers true whether or not it was found.
    bool GetFavorites(FavoritesList& list) override;
    // False when there is no bookmark file; entries read before a fault stay.
    virtual bool ReadBookmarkFile(FavoritesList& list) = 0;
    // The full path of this browser's bookmarks.html.
    virtual bool FindBookmarkFile(CStdStr& path) = 0;
    // The encoded entry of one line, when the line opens a folder, closes one or is a bookmark.
    virtual bool ParseBookmarkLine(const wchar_t* line, CStdStr& entry);

    // The folders opened and not yet closed, innermost last. Kept from one read to the next, so
    // names left open by an unbalanced file are closed by the next file's first "</DL>" lines.
    std::vector<CStdStr> FolderStack;

protected:
    ~cBookmarkFileFinder() = default;
    // This browser's bookmark file ready to be read line by line; null when there is none or its
    // line buffer cannot be had.
    std::unique_ptr<cLineFile> OpenBookmarkFile();
    // Parses one line of the file, given as bytes in codePage, and appends its entry if it has one.
    // line holds the decoded text; the caller keeps it from line to line, so its storage is reused.
    void AppendBookmarkLine(FavoritesList& list, std::string_view bytes, unsigned int codePage, std::wstring& line);

private:
    // The last line parsed; its strings' storage serves every line.
    BookmarkLine parsed_;
};
