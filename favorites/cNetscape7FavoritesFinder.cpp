#include "favorites/cNetscape7FavoritesFinder.h"
#include "favorites/MozillaProfile.h"

bool cNetscape7FavoritesFinder::FindBookmarkFile(CStdStr& path) {
    // Netscape 7 looks only inside the Mozilla profile named "default".
    return FindProfileFile(L"\\Mozilla\\Profiles\\default\\", L"\\bookmarks.html", path);
}
