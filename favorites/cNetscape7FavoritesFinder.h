#pragma once
#include "favorites/cNetscapeFavoritesFinder.h"

// Netscape 7's bookmarks: the first sub-folder of the Mozilla profile "default" holding
// bookmarks.html, read as Navigator's are.
class cNetscape7FavoritesFinder : public cNetscapeFavoritesFinder {
public:
    bool FindBookmarkFile(CStdStr& path) override;
};
