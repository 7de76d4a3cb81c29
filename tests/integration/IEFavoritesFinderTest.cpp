// Internet Explorer favorites read from a real Favorites folder: the user's Favorites location is
// pointed at a scratch folder for each test, and the shell's own objects read its shortcuts.
#include <gtest/gtest.h>
#include <windows.h>
#include <shlguid.h>
#include <shlobj.h>
#include <string>
#include <vector>
#include "core/ComPtr.h"
#include "core/ScopedFileHandle.h"
#include "core/ScopedRegKey.h"
#include "favorites/cBrowserFavorites.h"
#include "favorites/cIEFavoritesFinder.h"
#include "support/ListTexts.h"
#include "support/ProcessState.h"
#include "support/RegistryGuard.h"
#include "support/ScratchFolder.h"

using namespace wbstest;

namespace {
const wchar_t kUserShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
const wchar_t kShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";

class IEFavoritesFinderTest : public ::testing::Test {
protected:
    // The shell reads the location from "User Shell Folders" and copies it into "Shell Folders".
    RegistryGuard userLocation{HKEY_CURRENT_USER, kUserShellFolders, L"Favorites"};
    RegistryGuard shellLocation{HKEY_CURRENT_USER, kShellFolders, L"Favorites"};
    ScratchFolder scratch{L"IEFavorites"};
    std::wstring favorites = scratch.File(L"Favorites");

    void SetUp() override {
        ResetProcessWideState();
        ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
        ASSERT_TRUE(::CreateDirectoryW(favorites.c_str(), nullptr));
        PointFavoritesAt(favorites);
        wchar_t seen[MAX_PATH] = {};
        ASSERT_TRUE(::SHGetSpecialFolderPathW(nullptr, seen, CSIDL_FAVORITES, FALSE));
        ASSERT_EQ(std::wstring(seen), favorites);
    }
    void TearDown() override { ::CoUninitialize(); }

    static void PointFavoritesAt(const std::wstring& folder) {
        ScopedRegKey key;
        ASSERT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, kUserShellFolders, 0, KEY_SET_VALUE, key.Receive()), ERROR_SUCCESS);
        ASSERT_EQ(::RegSetValueExW(key.get(), L"Favorites", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                                   static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    void Folder(const std::wstring& relative) {
        ASSERT_TRUE(::CreateDirectoryW(scratch.File(relative).c_str(), nullptr)) << relative;
    }
    void File(const std::wstring& relative, const std::string& text) {
        ScopedFileHandle file(::CreateFileW(scratch.File(relative).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(file.valid()) << relative;
        DWORD written = 0;
        ASSERT_TRUE(::WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr));
    }
    void UrlShortcut(const std::wstring& relative, const std::string& url) {
        File(relative, "[InternetShortcut]\r\nURL=" + url + "\r\n");
    }
    void ShellLink(const std::wstring& relative, const std::wstring& targetRelative) {
        ComPtr<IShellLinkW> link;
        ASSERT_EQ(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, link.ReceiveVoid()),
                  S_OK);
        ASSERT_EQ(link->SetPath(scratch.File(targetRelative).c_str()), S_OK);
        ComPtr<IPersistFile> file;
        ASSERT_EQ(link->QueryInterface(IID_IPersistFile, file.ReceiveVoid()), S_OK);
        ASSERT_EQ(file->Save(scratch.File(relative).c_str(), TRUE), S_OK);
    }
};

}  // namespace

// Wine lists a folder's entries sorted by name, case-insensitively, so the walk's order is known.
TEST_F(IEFavoritesFinderTest, WalksTheTreeTakingOnlyReadableLowerCaseUrlShortcuts) {
    UrlShortcut(L"Favorites\\News.url", "http://news.example/");
    UrlShortcut(L"Favorites\\a.url.bak", "http://bak.example/");
    UrlShortcut(L"Favorites\\Site.URL", "http://capitals.example/");
    File(L"Favorites\\broken.url", "\x01\x02 not a shortcut");
    File(L"Favorites\\broken.lnk", "not a link either");
    File(L"Favorites\\notes.txt", "[InternetShortcut]\r\nURL=http://text.example/\r\n");
    Folder(L"Favorites\\Empty");
    Folder(L"Favorites\\Work");
    UrlShortcut(L"Favorites\\Work\\News.url", "http://news.example/");
    UrlShortcut(L"Favorites\\Work\\Mail.url", "http://mail.example/");
    Folder(L"Favorites\\Work\\Tools");
    UrlShortcut(L"Favorites\\Work\\Tools\\Docs.url", "http://docs.example/");
    // A link to a file searches "<file>*.*", which finds only the file itself, no shortcut.
    Folder(L"Targets");
    File(L"Targets\\page.txt", "text");
    ShellLink(L"Favorites\\Page.lnk", L"Targets\\page.txt");

    const std::vector<std::wstring> expected = {
        L"a<http://bak.example/>",
        L":Start<Empty>", L":End<Empty>",
        L"News<http://news.example/>",
        L":Start<Page.lnk>", L":End<Page.lnk>",
        L":Start<Work>",
        L"Mail<http://mail.example/>",
        L"News<http://news.example/>",
        L":Start<Tools>", L"Docs<http://docs.example/>", L":End<Tools>",
        L":End<Work>",
    };
    cBrowserFavorites<cIEFavoritesFinder> wrapper;
    FavoritesList list;
    list.Append(FavoriteEntry{CStdStr(L"stale<http://stale/>"), CStdStr()});
    ASSERT_TRUE(wrapper.GetFavorites(list));
    EXPECT_EQ(Texts(list), expected);
    ASSERT_TRUE(wrapper.GetFavorites(list));
    EXPECT_EQ(Texts(list), expected);
    list.clear();
    EXPECT_EQ(wrapper.GetFinder().EnumFavoritesFolder(list, (favorites + L"\\").c_str(), true), S_OK);
    EXPECT_EQ(Texts(list), expected);
}

TEST_F(IEFavoritesFinderTest, LinkTargetIsSearchedAsAPrefixAndItsFailureEndsTheWholeWalk) {
    struct Case {
        const wchar_t* name;
        bool removeTarget;
        std::vector<std::wstring> expected;
        HRESULT walk;
    };
    // The target "...\Linked" searches "...\Linked*.*": it meets the folder Linked itself in its
    // parent and walks "...\LinkedLinked\", which does not exist. A vanished target meets nothing.
    const Case cases[] = {
        {L"folder target", false,
         {L"A<http://a.example/>", L":Start<Linked.lnk>", L":Start<Linked>", L":End<Linked>", L":End<Linked.lnk>"},
         HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND)},
        {L"vanished target", true, {L"A<http://a.example/>", L":Start<Linked.lnk>", L":End<Linked.lnk>"},
         HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND)},
    };
    UrlShortcut(L"Favorites\\A.url", "http://a.example/");
    UrlShortcut(L"Favorites\\Zed.url", "http://zed.example/");
    Folder(L"Favorites\\Zoo");
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(ScratchFolder::RemoveTree(scratch.File(L"Targets")));
        Folder(L"Targets");
        Folder(L"Targets\\Linked");
        UrlShortcut(L"Targets\\Linked\\inner.url", "http://inner.example/");
        ShellLink(L"Favorites\\Linked.lnk", L"Targets\\Linked");
        if (c.removeTarget) {
            ASSERT_TRUE(ScratchFolder::RemoveTree(scratch.File(L"Targets\\Linked")));
        }

        cIEFavoritesFinder finder;
        FavoritesList list;
        EXPECT_TRUE(finder.GetFavorites(list));
        EXPECT_EQ(Texts(list), c.expected);
        list.clear();
        EXPECT_EQ(finder.EnumFavoritesFolder(list, (favorites + L"\\").c_str(), true), c.walk);
        EXPECT_EQ(Texts(list), c.expected);
        ASSERT_TRUE(::DeleteFileW(scratch.File(L"Favorites\\Linked.lnk").c_str()));
    }
}

TEST_F(IEFavoritesFinderTest, NoFavoritesFolderGivesFalseAndAnEmptyList) {
    PointFavoritesAt(scratch.File(L"Missing"));
    cIEFavoritesFinder finder;
    FavoritesList list;
    list.Append(FavoriteEntry{CStdStr(L"stale<http://stale/>"), CStdStr()});
    EXPECT_FALSE(finder.GetFavorites(list));
    EXPECT_TRUE(list.empty());
}
