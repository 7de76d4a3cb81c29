#pragma once
#include <vector>
#include "CStdStr.h"
#include "FavoritesList.h"
#include "favorites/iFavoritesFinder.h"

class cLineFile;

// Opera's bookmarks: the hotlist "opera6.adr" in the profile beside the Opera program, read as
// UTF-8 one record at a time.
class cOperaFavoritesFinder : public iFavoritesFinder {
public:
    // Clears list, reads the hotlist and answers true whether or not it was found.
    bool GetFavorites(FavoritesList& list) override;
    virtual ~cOperaFavoritesFinder() = default;
    // False when there is no hotlist location; entries read before the end or a fault stay.
    virtual bool ReadHotlist(FavoritesList& list);
    // The full path of the hotlist; whether the file is there is not looked at.
    virtual bool FindHotlistFile(CStdStr& path);
    // Handles the record that line opens, reading the record's further lines from file itself;
    // true when it appended an entry.
    virtual bool ParseHotlistLine(const wchar_t* line, cLineFile& file, FavoritesList& list);

    // The folders opened and not yet closed, innermost last. Kept from one read to the next, so
    // names left open by an unbalanced hotlist are closed by the next read's first "-" lines.
    std::vector<CStdStr> FolderStack;
};
