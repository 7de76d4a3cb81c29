#pragma once
#include <set>
#include <vector>
#include <windows.h>
#include <objidl.h>
#include "CStdStr.h"
#include "FavoritesList.h"
#include "core/ComPtr.h"
#include "favorites/iFavoritesFinder.h"

// Internet Explorer's favorites: the user's Favorites folder walked in file-system order, each
// ".url" file a favorite and each sub-folder or folder ".lnk" a folder. The shell's own objects
// read every shortcut. COM must already be initialised on the calling thread.
class cIEFavoritesFinder : public iFavoritesFinder {
public:
    // False when there is no Favorites folder or no shell allocator; true once the walk started.
    bool GetFavorites(FavoritesList& list) override;
    // The address an Internet Shortcut file holds.
    virtual HRESULT ReadUrlShortcut(const CStdStr& path, CStdStr& url);
    // The path a Shell Link file points at, in its short form, resolved without user interface.
    virtual HRESULT ResolveLinkTarget(const CStdStr& path, CStdStr& target);

    // Appends the entries of folder, a prefix to which "*.*" and each entry's name are appended
    // as they are. The first error ends the walk at every level and is returned; entries already
    // appended stay.
    HRESULT EnumFavoritesFolder(FavoritesList& list, const wchar_t* folder, bool topLevel);

private:
    // Whether target is a folder the walk is inside of (or one that holds it): a link to it would
    // walk the same folders again without end.
    bool IsOnWalkPath(const CStdStr& target) const;

    ComPtr<IMalloc> shellAllocator_;
    std::vector<std::wstring> walkPath_;  // the folders being walked, outermost first, lower-cased
    std::set<std::wstring> linksWalked_;  // the linked folders walked in this read
};
