#pragma once
#include "CStdStr.h"
#include "FavoritesList.h"

// One browser's favorites reader. Finders append in the list's encoding: ":Start<" name ">",
// ":End<" name ">" and name "<" url ">", each with an empty Extra.
class iFavoritesFinder {
public:
    // Clears list and fills it from the browser's store.
    virtual bool GetFavorites(FavoritesList& list) = 0;
    virtual void AddFolderStart(FavoritesList& list, const CStdStr& name);
    virtual void AddFolderEnd(FavoritesList& list, const CStdStr& name);
    virtual void AddFavorite(FavoritesList& list, const CStdStr& name, const CStdStr& url);

protected:
    // Finders are owned by value (inside cBrowserFavorites), never deleted through this interface.
    ~iFavoritesFinder() = default;
};
