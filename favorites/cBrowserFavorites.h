#pragma once
#include "FavoritesList.h"

// How a browser driver hands out its favorites: the finder lives inside, made and destroyed
// with the wrapper.
template <typename Finder>
class cBrowserFavorites {
public:
    // No browser's favorites can be edited through the library.
    virtual bool IsSupported() { return false; }
    virtual bool GetFavorites(FavoritesList& list) { return finder_.GetFavorites(list); }

    Finder& GetFinder() noexcept { return finder_; }

private:
    Finder finder_;
};
