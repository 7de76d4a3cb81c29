// The Mozilla-family readers over real profile folders: the user's application-data folder is
// pointed at a scratch folder for each test, and bookmark and history files are written into it.
#include <gtest/gtest.h>
#include <windows.h>
#include <shlobj.h>
#include <memory>
#include <string>
#include <vector>
#include "core/ScopedFileHandle.h"
#include "core/ScopedRegKey.h"
#include "favorites/MozillaProfile.h"
#include "favorites/cBrowserFavorites.h"
#include "favorites/cFirefoxFavoritesFinder.h"
#include "favorites/cNetscape7FavoritesFinder.h"
#include "favorites/cNetscapeFavoritesFinder.h"
#include "history/cFirefoxHistoryFinder.h"
#include "history/cNetscape7HistoryFinder.h"
#include "history/cNetscapeHistoryFinder.h"
#include "support/ListTexts.h"
#include "support/ProcessState.h"
#include "support/RegistryGuard.h"
#include "support/ScratchFolder.h"
#include "support/TestPaths.h"

using namespace wbstest;

namespace {
const wchar_t kUserShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
const wchar_t kShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
const wchar_t kBiffKey[] = L"Software\\Netscape\\Netscape Navigator\\biff";


std::string WithCrLf(const std::string& text) {
    std::string out;
    for (const char ch : text) {
        if (ch == '\n') out += '\r';
        out += ch;
    }
    return out;
}

// A bookmarks.html as the browsers write it, names in UTF-8.
const std::string kBookmarksHtml =
    "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n"
    "<!-- This is an automatically generated file.\n"
    "     It will be read and overwritten.\n"
    "     DO NOT EDIT! -->\n"
    "<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; charset=UTF-8\">\n"
    "<TITLE>Bookmarks</TITLE>\n"
    "<H1 LAST_MODIFIED=\"1199145600\">Bookmarks Menu</H1>\n"
    "\n"
    "<DL><p>\n"
    "    <DT><H3 ADD_DATE=\"1199145600\" LAST_MODIFIED=\"1199145700\" PERSONAL_TOOLBAR_FOLDER=\"true\" "
    "ID=\"rdf:#$FvPhC3\">Bookmarks Toolbar Folder</H3>\n"
    "<DD>Add bookmarks to this folder to see them displayed on the Bookmarks Toolbar\n"
    "    <DL><p>\n"
    "        <DT><A HREF=\"http://www.example.com/news?a=1&amp;b=2\" ADD_DATE=\"1199145600\" "
    "LAST_CHARSET=\"UTF-8\" ID=\"rdf:#$GvPhC3\">Example &amp; News</A>\n"
    "        <DT><A HREF=\"http://fr.example.org/\" ICON=\"data:image/png;base64,iVBORw0KGgo=\" "
    "LAST_CHARSET=\"ISO-8859-1\">Caf\xC3\xA9 Cr\xC3\xA8me</A>\n"
    "    </DL><p>\n"
    "    <DT><H3 ADD_DATE=\"1199145600\" ID=\"rdf:#$ZvPhC3\">\xE6\x97\xA5\xE6\x9C\xAC\xE8\xAA\x9E</H3>\n"
    "    <DL><p>\n"
    "        <DT><H3 ID=\"rdf:#$inner\">Inner</H3>\n"
    "        <DL><p>\n"
    "            <dt><a href=\"http://example.jp/\" SHORTCUTURL=\"jp\">\xE6\x9D\xB1\xE4\xBA\xAC</a>\n"
    "        </DL><p>\n"
    "        <DT><H3 ID=\"rdf:#$empty\">Empty</H3>\n"
    "        <DL><p>\n"
    "        </DL><p>\n"
    "    </DL><p>\n"
    "    <HR>\n"
    "    <DT><A HREF=\"http://feeds.example.com/\" FEEDURL=\"http://feeds.example.com/rss.xml\" "
    "ID=\"rdf:#$feed\">Live Feed</A>\n"
    "    <DT><A FEEDURL=\"http://feeds.example.com/other.xml\" HREF=\"http://feeds.example.com/o\">Other Feed</A>\n"
    "<DD>A description line\n"
    "\t<DT><A HREF=\"http://dup.example/\">Dup</A>\n"
    "\t<DT><A HREF=\"http://dup.example/\">Dup</A>\n"
    "    <DT><A HREF=\"http://noname.example/\"></A>\n"
    "</DL><p>\n";

const std::vector<std::wstring> kBookmarksUtf8 = {
    L":Start<Bookmarks Toolbar Folder>",
    L"Example &amp; News<http://www.example.com/news?a=1&amp;b=2>",
    L"Caf\u00E9 Cr\u00E8me<http://fr.example.org/>",
    L":End<Bookmarks Toolbar Folder>",
    L":Start<\u65E5\u672C\u8A9E>",
    L":Start<Inner>",
    L"\u6771\u4EAC<http://example.jp/>",
    L":End<Inner>",
    L":Start<Empty>",
    L":End<Empty>",
    L":End<\u65E5\u672C\u8A9E>",
    L"Live Feed<http://feeds.example.com/>",
    L"Dup<http://dup.example/>",
    L"Dup<http://dup.example/>",
    L"<http://noname.example/>",
};

// Profile folders live under the application-data folder, which each test points at its own
// scratch folder through the user's shell-folder settings.
class MozillaReadersTest : public ::testing::Test {
protected:
    RegistryGuard userLocation{HKEY_CURRENT_USER, kUserShellFolders, L"AppData"};
    RegistryGuard shellLocation{HKEY_CURRENT_USER, kShellFolders, L"AppData"};
    RegistryGuard biff{HKEY_CURRENT_USER, kBiffKey, L"CurrentUser"};
    // This test's application-data folder.
    std::wstring appData = suiteFolder->File(CurrentTestName());

    // A found profile leaves its scan's enumeration open, so a profiles root cannot be removed
    // while the test program runs: the folders of a whole suite go at its end (or, failing that,
    // when the next run starts), not after each test.
    static void SetUpTestSuite() { suiteFolder = std::make_unique<ScratchFolder>(L"MozillaAppData"); }
    static void TearDownTestSuite() { suiteFolder.reset(); }
    static inline std::unique_ptr<ScratchFolder> suiteFolder;

    void SetUp() override {
        ResetProcessWideState();
        ASSERT_TRUE(::CreateDirectoryW(appData.c_str(), nullptr)) << appData;
        SetShellFolder(L"AppData", appData);
        wchar_t seen[MAX_PATH] = {};
        ASSERT_EQ(::SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, seen), S_OK);
        ASSERT_EQ(std::wstring(seen), appData);
        ScopedRegKey biffKey;
        ASSERT_NE(::RegOpenKeyExW(HKEY_CURRENT_USER, kBiffKey, 0, KEY_READ, biffKey.Receive()), ERROR_SUCCESS)
            << "the prefix already has a Navigator biff key";
    }

    static void SetShellFolder(const wchar_t* name, const std::wstring& folder) {
        ScopedRegKey key;
        ASSERT_EQ(::RegOpenKeyExW(HKEY_CURRENT_USER, kUserShellFolders, 0, KEY_SET_VALUE, key.Receive()),
                  ERROR_SUCCESS);
        ASSERT_EQ(::RegSetValueExW(key.get(), name, 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                                   static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
    std::wstring Path(const std::wstring& relative) const { return appData + L"\\" + relative; }

    // Writes bytes to a file below the application-data folder, making its folders first.
    void Write(const std::wstring& relative, const std::string& bytes) {
        Folder(relative.substr(0, relative.rfind(L'\\')));
        ScopedFileHandle file(::CreateFileW(Path(relative).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                            FILE_ATTRIBUTE_NORMAL, nullptr));
        ASSERT_TRUE(file.valid()) << relative;
        DWORD written = 0;
        ASSERT_TRUE(::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        ASSERT_EQ(written, bytes.size());
    }
    void Folder(const std::wstring& relative) {
        for (size_t end = 0; end != std::wstring::npos;) {
            end = relative.find(L'\\', end + 1);
            const std::wstring path = Path(relative.substr(0, end));
            if (::GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) {
                ASSERT_TRUE(::CreateDirectoryW(path.c_str(), nullptr)) << path;
            }
        }
    }
    static void SetBiff(const wchar_t* currentUser) {
        ScopedRegKey key;
        ASSERT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, kBiffKey, 0, nullptr, 0, KEY_SET_VALUE, nullptr, key.Receive(),
                                    nullptr),
                  ERROR_SUCCESS);
        if (currentUser == nullptr) return;
        ASSERT_EQ(::RegSetValueExW(key.get(), L"CurrentUser", 0, REG_SZ, reinterpret_cast<const BYTE*>(currentUser),
                                   static_cast<DWORD>((wcslen(currentUser) + 1) * sizeof(wchar_t))),
                  ERROR_SUCCESS);
    }
};

using MozillaProfile = MozillaReadersTest;
using MozillaBookmarks = MozillaReadersTest;
using MozillaHistory = MozillaReadersTest;

}  // namespace

TEST_F(MozillaProfile, ScanTakesTheProfileFolderThatHoldsTheFileSkippingPlainFiles) {
    CStdStr appData;
    ASSERT_TRUE(GetAppDataFolder(appData));
    EXPECT_EQ(appData, appData);

    CStdStr found(L"unchanged");
    EXPECT_FALSE(FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\bookmarks.html", found));
    Folder(L"Mozilla\\Firefox\\Profiles");
    EXPECT_FALSE(FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\bookmarks.html", found));

    // A file named like a profile, and a profile without the file, are both passed over.
    Write(L"Mozilla\\Firefox\\Profiles\\a1b2.default", "not a folder");
    Folder(L"Mozilla\\Firefox\\Profiles\\c3d4.empty");
    EXPECT_FALSE(FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\bookmarks.html", found));
    EXPECT_EQ(found, L"unchanged");
    Write(L"Mozilla\\Firefox\\Profiles\\e5f6.work\\bookmarks.html", kBookmarksHtml);
    ASSERT_TRUE(FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\bookmarks.html", found));
    EXPECT_EQ(found, Path(L"Mozilla\\Firefox\\Profiles\\e5f6.work\\bookmarks.html"));
    // A wildcard file name is kept in the answer as it was asked.
    ASSERT_TRUE(FindProfileFile(L"\\Mozilla\\Firefox\\Profiles\\", L"\\bookmarks.htm*", found));
    EXPECT_EQ(found, Path(L"Mozilla\\Firefox\\Profiles\\e5f6.work\\bookmarks.htm*"));
}

TEST_F(MozillaProfile, WithoutAnApplicationDataFolderTheDocumentsFolderServes) {
    RegistryGuard userDocuments{HKEY_CURRENT_USER, kUserShellFolders, L"Personal"};
    RegistryGuard shellDocuments{HKEY_CURRENT_USER, kShellFolders, L"Personal"};
    Folder(L"Documents");
    SetShellFolder(L"Personal", Path(L"Documents"));
    SetShellFolder(L"AppData", Path(L"Missing"));
    LPITEMIDLIST items = nullptr;
    ASSERT_TRUE(FAILED(::SHGetSpecialFolderLocation(nullptr, CSIDL_APPDATA, &items)));

    CStdStr folder;
    ASSERT_TRUE(GetAppDataFolder(folder));
    EXPECT_EQ(folder, Path(L"Documents\\Application Data"));
    Write(L"Documents\\Application Data\\Mozilla\\Firefox\\Profiles\\d.default\\bookmarks.html", kBookmarksHtml);
    FavoritesList list;
    ASSERT_TRUE(cBrowserFavorites<cFirefoxFavoritesFinder>().GetFavorites(list));
    EXPECT_EQ(list.size(), kBookmarksUtf8.size());
}

TEST_F(MozillaBookmarks, FirefoxReadsUtf8FoldersAndBookmarksWithLfOrCrLf) {
    cBrowserFavorites<cFirefoxFavoritesFinder> favorites;
    FavoritesList list;
    list.Append(FavoriteEntry{CStdStr(L"stale"), CStdStr()});
    EXPECT_TRUE(favorites.GetFavorites(list));
    EXPECT_TRUE(list.empty());

    Write(L"Mozilla\\Firefox\\Profiles\\x1y2.default\\bookmarks.html", kBookmarksHtml);
    ASSERT_TRUE(favorites.GetFavorites(list));
    EXPECT_EQ(Texts(list), kBookmarksUtf8);
    // A second read rebuilds the list rather than adding to it.
    ASSERT_TRUE(favorites.GetFavorites(list));
    EXPECT_EQ(Texts(list), kBookmarksUtf8);

    Write(L"Mozilla\\Firefox\\Profiles\\x1y2.default\\bookmarks.html", WithCrLf(kBookmarksHtml));
    ASSERT_TRUE(favorites.GetFavorites(list));
    EXPECT_EQ(Texts(list), kBookmarksUtf8);
    EXPECT_TRUE(favorites.GetFinder().FolderStack.empty());
}

TEST_F(MozillaBookmarks, NetscapeReadsTheSameBytesInTheAnsiCodePageAndKeepsAnUnendedLastLine) {
    ASSERT_EQ(::GetACP(), 1252u) << "the expected names are Windows-1252 readings of UTF-8 bytes";
    // The last bookmark has no newline: Firefox meets the end of the file while reading it.
    const std::string bytes = kBookmarksHtml + "<DT><A HREF=\"http://last.example/\">Last</A>";
    Write(L"Mozilla\\Firefox\\Profiles\\p.default\\bookmarks.html", bytes);
    Write(L"Netscape\\NSB\\Profiles\\q.default\\bookmarks.html", bytes);

    FavoritesList firefox;
    ASSERT_TRUE(cBrowserFavorites<cFirefoxFavoritesFinder>().GetFavorites(firefox));
    EXPECT_EQ(Texts(firefox), kBookmarksUtf8);

    FavoritesList netscape;
    ASSERT_TRUE(cBrowserFavorites<cNetscapeFavoritesFinder>().GetFavorites(netscape));
    const std::vector<std::wstring> texts = Texts(netscape);
    ASSERT_EQ(texts.size(), kBookmarksUtf8.size() + 1);
    EXPECT_EQ(texts[2], L"Caf\u00C3\u00A9 Cr\u00C3\u00A8me<http://fr.example.org/>");
    // Each UTF-8 byte of the three CJK characters is one character of its own.
    EXPECT_EQ(texts[4].size(), std::wstring(L":Start<>").size() + 9);
    EXPECT_EQ(texts.back(), L"Last<http://last.example/>");
    for (size_t i : {0u, 1u, 3u, 5u, 7u, 8u, 9u, 11u, 12u, 13u, 14u}) EXPECT_EQ(texts[i], kBookmarksUtf8[i]);
}

TEST_F(MozillaBookmarks, Netscape7LooksOnlyInTheDefaultMozillaProfile) {
    const std::string bytes = "<DL><p>\n<DT><A HREF=\"http://seven.example/\">Seven</A>\n</DL><p>\n";
    Write(L"Mozilla\\Profiles\\jane\\k2.slt\\bookmarks.html", bytes);
    FavoritesList list;
    ASSERT_TRUE(cBrowserFavorites<cNetscape7FavoritesFinder>().GetFavorites(list));
    EXPECT_TRUE(list.empty());
    ASSERT_TRUE(cBrowserFavorites<cNetscapeFavoritesFinder>().GetFavorites(list));
    EXPECT_TRUE(list.empty());

    Write(L"Mozilla\\Profiles\\default\\m9.slt\\bookmarks.html", bytes);
    ASSERT_TRUE(cBrowserFavorites<cNetscape7FavoritesFinder>().GetFavorites(list));
    EXPECT_EQ(Texts(list), std::vector<std::wstring>{L"Seven<http://seven.example/>"});
}

TEST_F(MozillaBookmarks, FoldersLeftOpenByOneReadAreClosedByTheNextFile) {
    const std::wstring file = L"Mozilla\\Firefox\\Profiles\\u.default\\bookmarks.html";
    Write(file, "<DL><p>\n<DT><H3>Open</H3>\n<DL><p>\n<DT><A HREF=\"http://a/\">A</A>\n");
    cBrowserFavorites<cFirefoxFavoritesFinder> favorites;
    FavoritesList list;
    ASSERT_TRUE(favorites.GetFavorites(list));
    EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L":Start<Open>", L"A<http://a/>"}));

    Write(file, "<DL><p>\n<DT><A HREF=\"http://b/\">B</A>\n</DL><p>\n</DL><p>\n");
    ASSERT_TRUE(favorites.GetFavorites(list));
    EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"B<http://b/>", L":End<Open>"}));
    EXPECT_TRUE(favorites.GetFinder().FolderStack.empty());
}

namespace {
const std::string kFirefoxLocalStore =
    "<?xml version=\"1.0\"?>\n"
    "<RDF:RDF xmlns:NC=\"http://home.netscape.com/NC-rdf#\"\n"
    "         xmlns:RDF=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
    "  <RDF:Description RDF:about=\"chrome://browser/content/browser.xul#main-window\"\n"
    "                   width=\"1024\"\n"
    "                   height=\"768\" />\n"
    "  <RDF:Seq RDF:about=\"nc:urlbar-history\">\n"
    "    <RDF:li>http://www.Example.com/Path</RDF:li>\n"
    "    <RDF:li>https://mail.example.org/caf\xC3\xA9</RDF:li>\n"
    "  </RDF:Seq>\n"
    "  <RDF:Description RDF:about=\"chrome://browser/content/browser.xul\">\n"
    "    <NC:persist RDF:resource=\"chrome://browser/content/browser.xul#main-window\"/>\n"
    "  </RDF:Description>\n"
    "  <NC:title>Some Title</NC:title>\n"
    "</RDF:RDF>\n";

const std::string kNetscapeLocalStore =
    "<?xml version=\"1.0\"?>\n"
    "<RDF:RDF xmlns:NC=\"http://home.netscape.com/NC-rdf#\">\n"
    "  <NC:title>Before</NC:title>\n"
    "  <RDF:Seq RDF:about=\"nc:URLBAR-History\">\n"
    "    <RDF:li>HTTP://Netscape.COM/Home</RDF:li>\n"
    "\n"
    "    <RDF:li>http://two.example/</RDF:li>\n"
    "  </RDF:Seq>\n"
    "  <NC:title>After</NC:title>\n"
    "</RDF:RDF>\n";
}  // namespace

TEST_F(MozillaHistory, FirefoxReadsEveryOneLineElementOfTheProfileThatHasTheFile) {
    Folder(L"Mozilla\\Firefox\\Profiles\\aaaa.first");
    Write(L"Mozilla\\Firefox\\Profiles\\zzzz.second\\localstore.rdf", WithCrLf(kFirefoxLocalStore));
    cFirefoxHistoryFinder finder;
    HistoryList list;
    list.Append(HistoryEntry{CStdStr(L"earlier"), CStdStr()});
    ASSERT_TRUE(finder.FindHistory(list));
    // Bytes are widened one by one, not decoded from UTF-8; case is kept.
    EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"earlier", L"http://www.Example.com/Path",
                                                      L"https://mail.example.org/caf\u00C3\u00A9", L"Some Title"}));
}

TEST_F(MozillaHistory, NetscapeReadsTheUrlBarSequenceLowerCasedRepeatingOnLinesWithoutAnElement) {
    // No biff key: the profile named "default". Its sub-folder counts only with a bookmark file.
    Write(L"Netscape\\NSB\\Profiles\\default\\ab12.slt\\localstore.rdf", kNetscapeLocalStore);
    HistoryList list;
    ASSERT_TRUE(cNetscapeHistoryFinder().FindHistory(list));
    EXPECT_TRUE(list.empty());

    Write(L"Netscape\\NSB\\Profiles\\default\\ab12.slt\\bookmarks.htm", "");
    ASSERT_TRUE(cNetscapeHistoryFinder().FindHistory(list));
    EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"http://netscape.com/home", L"http://netscape.com/home",
                                                      L"http://two.example/"}));
}

TEST_F(MozillaHistory, NetscapeFollowsTheBiffUserAndStopsWhenItsValueIsMissing) {
    Write(L"Netscape\\NSB\\Profiles\\default\\d.slt\\bookmarks.html", "");
    Write(L"Netscape\\NSB\\Profiles\\default\\d.slt\\localstore.rdf", kNetscapeLocalStore);
    Write(L"Netscape\\NSB\\Profiles\\Jane Doe\\j.slt\\bookmarks.html", "");
    Write(L"Netscape\\NSB\\Profiles\\Jane Doe\\j.slt\\localstore.rdf",
          "<RDF:Seq RDF:about=\"nc:urlbar-history\">\n\n<RDF:li>http://Jane.example/</RDF:li>\n</RDF:Seq>\n"
          "<RDF:li>http://outside.example/</RDF:li>\n");

    SetBiff(nullptr);
    HistoryList list;
    ASSERT_TRUE(cNetscapeHistoryFinder().FindHistory(list));
    EXPECT_TRUE(list.empty());

    SetBiff(L"Jane Doe");
    ASSERT_TRUE(cNetscapeHistoryFinder().FindHistory(list));
    // A line without an element before the first address gives an empty entry.
    EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"", L"http://jane.example/"}));
}

TEST_F(MozillaHistory, Netscape7ReadsTheMozillaProfileAndNothingWithoutAUrlBarSequence) {
    Write(L"Mozilla\\Profiles\\default\\n7.slt\\bookmarks.html", kBookmarksHtml);
    Write(L"Mozilla\\Profiles\\default\\n7.slt\\localstore.rdf", kFirefoxLocalStore);
    HistoryList list;
    ASSERT_TRUE(cNetscape7HistoryFinder().FindHistory(list));
    // Lower-casing changes the ASCII letters only; the widened bytes of "é" stay as they were.
    EXPECT_EQ(Texts(list), (std::vector<std::wstring>{L"http://www.example.com/path",
                                                      L"https://mail.example.org/caf\u00C3\u00A9"}));
    ASSERT_TRUE(cNetscapeHistoryFinder().FindHistory(list));
    EXPECT_EQ(list.size(), 2u);

    Write(L"Mozilla\\Profiles\\default\\n7.slt\\localstore.rdf",
          "<RDF:RDF>\n  <NC:title>No sequence</NC:title>\n</RDF:RDF>\n");
    list.clear();
    ASSERT_TRUE(cNetscape7HistoryFinder().FindHistory(list));
    EXPECT_TRUE(list.empty());
}
