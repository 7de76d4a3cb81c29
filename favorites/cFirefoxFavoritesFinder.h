#pragma once
#include "favorites/cBookmarkFileFinder.h"

// Firefox's bookmarks: the first profile under "Mozilla\Firefox\Profiles" holding bookmarks.html,
// read as UTF-8.
class cFirefoxFavoritesFinder : public cBookmarkFileFinder {
public:
    bool ReadBookmarkFile(FavoritesList& list) override;
    bool FindBookmarkFile(CStdStr& path) override;
};
