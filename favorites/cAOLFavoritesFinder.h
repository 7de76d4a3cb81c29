#pragma once
#include "CStdStr.h"
#include "FavoritesList.h"
#include "favorites/iFavoritesFinder.h"

// AOL's favorites: the first file without an extension in the Organize folder of the AOL
// program, a binary file of folder and link records whose folders are rebuilt from each record's
// parent id (the layout is described at ReadAOLFavoritesRecords).
class cAOLFavoritesFinder : public iFavoritesFinder {
public:
    // Clears list, reads the file and answers true whether or not it was found.
    bool GetFavorites(FavoritesList& list) override;
    virtual ~cAOLFavoritesFinder() = default;
    // The full path of the first file (not directory) of "\Organize\*." below the program folder.
    virtual bool FindFavoritesFile(CStdStr& path);
    // False when there is no file or it cannot be opened; what the file holds up to its end or
    // its first fault is appended.
    virtual bool ReadFavoritesFile(FavoritesList& list);
};
