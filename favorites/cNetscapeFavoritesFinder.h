#pragma once
#include "favorites/cBookmarkFileFinder.h"

// Navigator's and Netscape 8's bookmarks: the first profile under "Netscape\NSB\Profiles" holding
// bookmarks.html, read in the ANSI code page.
class cNetscapeFavoritesFinder : public cBookmarkFileFinder {
public:
    bool ReadBookmarkFile(FavoritesList& list) override;
    bool FindBookmarkFile(CStdStr& path) override;
};
