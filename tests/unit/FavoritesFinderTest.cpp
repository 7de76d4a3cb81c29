// The favorites list encoding shared by every finder, and the wrapper a driver hands it out through.
#include <gtest/gtest.h>
#include <string>
#include <vector>
#include "favorites/cBrowserFavorites.h"
#include "favorites/cIEFavoritesFinder.h"
#include "favorites/iFavoritesFinder.h"

namespace {

// Appends a fixed tree through the shared operations and answers what the test chose.
class ScriptedFinder : public iFavoritesFinder {
public:
    bool GetFavorites(FavoritesList& list) override {
        list.clear();
        AddFolderStart(list, L"Tools <dev>");
        AddFavorite(list, L"a<b>", L"http://x.example/?q=<y>");
        AddFavorite(list, L"a<b>", L"http://x.example/?q=<y>");
        AddFolderStart(list, L"");
        AddFolderEnd(list, L"");
        AddFolderEnd(list, L"Tools <dev>");
        return answer;
    }
    bool answer = true;
};

}  // namespace

TEST(FavoritesFinder, WrapperForwardsVerbatimEncodingsWithEmptyExtraAndIsNeverSupported) {
    // Names holding "<" or ">" are stored as they are; duplicates are kept.
    const std::vector<std::wstring> expected = {
        L":Start<Tools <dev>>", L"a<b><http://x.example/?q=<y>>", L"a<b><http://x.example/?q=<y>>",
        L":Start<>",            L":End<>",                        L":End<Tools <dev>>",
    };
    cBrowserFavorites<ScriptedFinder> favorites;
    EXPECT_FALSE(favorites.IsSupported());
    EXPECT_FALSE(cBrowserFavorites<cIEFavoritesFinder>().IsSupported());

    FavoritesList list;
    ASSERT_TRUE(favorites.GetFavorites(list));
    std::vector<std::wstring> texts;
    for (const FavoriteEntry& entry : list) {
        EXPECT_EQ(entry.Extra, L"");
        texts.push_back(entry.Text);
    }
    EXPECT_EQ(texts, expected);

    favorites.GetFinder().answer = false;
    EXPECT_FALSE(favorites.GetFavorites(list));
}
