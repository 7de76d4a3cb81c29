// The readers' cases: each folder under tests/data/readers belongs to one reader, and each case
// in it is "<case>.expected", the listing the reader must give (one entry a line, UTF-8, its extra
// text after a tab; "(false)" when it must report failure), beside what is read:
//   <case>.html, .rdf, .adr, .dir, .aut, .bin
//                       placed where the reader's browser keeps that file
//   <case>.tree         the Favorites folder, a line an item: "dir PATH", "url PATH URL",
//                       "lnk PATH TARGET" (a shell link), "file PATH TEXT"; paths below the case root
//   <case>.reg          registry values, a line each: "KEY|NAME=DATA" or "KEY|NAME:dword=N" ...;
//                       "KEY|NAME" alone removes the value
//   <case>/             a folder copied as the case root (AppData\..., Documents\...)
//   <case>.then.<ext>   read next by the same reader; its listing follows a line "(then)"
// Each case has a root of its own with AppData and Favorites below it (and Opera\opera.exe as the
// registered Opera program, for Opera's readers); {root} in .reg data and .tree targets stands for it.
#include <gtest/gtest.h>
#include <windows.h>
#include <shlobj.h>
#include <functional>
#include "favorites/cAOLFavoritesFinder.h"
#include "favorites/cBrowserFavorites.h"
#include "favorites/cFirefoxFavoritesFinder.h"
#include "favorites/cIEFavoritesFinder.h"
#include "favorites/cNetscape7FavoritesFinder.h"
#include "favorites/cNetscapeFavoritesFinder.h"
#include "favorites/cOperaFavoritesFinder.h"
#include "history/cFirefoxHistoryFinder.h"
#include "history/cIEHistoryFinder.h"
#include "history/cNetscape7HistoryFinder.h"
#include "history/cAOLHistoryFinder.h"
#include "history/cNetscapeHistoryFinder.h"
#include "history/cOperaHistoryFinder.h"
#include "support/TestSupport.h"

using namespace wbstest;

namespace {

const wchar_t kShellFolders[] = L"HKCU\\Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
const wchar_t kOperaProgram[] = L"HKLM\\SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Opera.exe|={root}\\Opera\\opera.exe";
const wchar_t kAolPath[] = L"HKLM\\SOFTWARE\\America Online\\AOL\\CurrentVersion|AppPath={root}\\AOL";
const wchar_t* const kOwnedKeys[] = {L"Software\\Microsoft\\Internet Explorer\\TypedURLs",
                                     L"Software\\Netscape\\Netscape Navigator\\biff", L"Software\\Opera Software"};

template <typename Entries>
std::vector<std::wstring> Texts(bool found, const Entries& list) {
    if (!found) return {L"(false)"};
    std::vector<std::wstring> texts;
    for (const auto& entry : list) texts.push_back(entry.Text + (entry.Extra.empty() ? L"" : L"\t" + entry.Extra));
    return texts;
}

// One reader: where its file goes in a profile (and a bookmark file its profile needs beside
// it), and a read that keeps its finder between the reads of one case.
struct Reader {
    std::wstring profileFile, companion, registration;  // registration: a .reg line for the program
    std::function<std::function<std::vector<std::wstring>()>()> make;
};

template <typename Finder>
Reader Favorites(std::wstring file, std::wstring registration = L"") {
    return {std::move(file), L"", std::move(registration), [] {
        auto favorites = std::make_shared<cBrowserFavorites<Finder>>();
        return [favorites] {
            FavoritesList list;
            list.Append(FavoriteEntry{CStdStr(L"(stale)"), CStdStr()});
            const bool found = favorites->GetFavorites(list);
            return Texts(found, list);
        };
    }};
}

// History finders append: what the list held before stays first.
template <typename Finder>
Reader History(std::wstring file, std::wstring companion = L"", std::wstring registration = L"") {
    return {std::move(file), std::move(companion), std::move(registration), [] {
        auto finder = std::make_shared<Finder>();
        return [finder] {
            HistoryList list;
            list.Append(HistoryEntry{CStdStr(L"(earlier)"), CStdStr()});
            const bool found = finder->FindHistory(list);
            std::vector<std::wstring> texts = Texts(found, list);
            const bool kept = !found || (!texts.empty() && texts.front() == L"(earlier)");
            EXPECT_TRUE(kept) << "the entries the list held before were not kept";
            if (found && kept) texts.erase(texts.begin());
            return texts;
        };
    }};
}

const std::map<std::wstring, Reader>& Readers() {
    static const std::map<std::wstring, Reader> readers = {
        {L"firefox-bookmarks", Favorites<cFirefoxFavoritesFinder>(L"AppData\\Mozilla\\Firefox\\Profiles\\t1.default\\bookmarks.html")},
        {L"netscape-bookmarks", Favorites<cNetscapeFavoritesFinder>(L"AppData\\Netscape\\NSB\\Profiles\\t1.default\\bookmarks.html")},
        {L"netscape7-bookmarks", Favorites<cNetscape7FavoritesFinder>(L"AppData\\Mozilla\\Profiles\\default\\t1.slt\\bookmarks.html")},
        {L"ie-favorites", Favorites<cIEFavoritesFinder>(L"")},
        {L"firefox-history", History<cFirefoxHistoryFinder>(L"AppData\\Mozilla\\Firefox\\Profiles\\t1.default\\localstore.rdf")},
        {L"netscape-history", History<cNetscapeHistoryFinder>(L"AppData\\Netscape\\NSB\\Profiles\\default\\t1.slt\\localstore.rdf", L"bookmarks.html")},
        {L"netscape7-history", History<cNetscape7HistoryFinder>(L"AppData\\Mozilla\\Profiles\\default\\t1.slt\\localstore.rdf", L"bookmarks.html")},
        {L"ie-history", History<cIEHistoryFinder>(L"")},
        {L"opera-bookmarks", Favorites<cOperaFavoritesFinder>(L"Opera\\Profile\\opera6.adr", kOperaProgram)},
        {L"opera-history", History<cOperaHistoryFinder>(L"Opera\\Opera.dir", L"", kOperaProgram)},
        {L"aol-favorites", Favorites<cAOLFavoritesFinder>(L"AOL\\Organize\\main", kAolPath)},
        {L"aol-history", History<cAOLHistoryFinder>(L"AOL\\Organize\\main.AUT", L"", kAolPath)},
    };
    return readers;
}

void CopyTree(const std::wstring& from, const std::wstring& to) {
    for (const std::wstring& name : FolderNames(from, L"*")) {
        const std::wstring source = from + L"\\" + name;
        if (::GetFileAttributesW(source.c_str()) & FILE_ATTRIBUTE_DIRECTORY) CopyTree(source, to + L"\\" + name);
        else ASSERT_TRUE(WriteBytes(to + L"\\" + name, ReadBytes(source))) << ToUtf8(source);
    }
}

// One registry line: "KEY|NAME=DATA", "KEY|NAME:type=DATA" or "KEY|NAME" to remove the value.
void ApplyRegistryLine(RegistryScope& registry, const std::wstring& line, const std::wstring& root) {
    const size_t bar = line.find(L'|'), equals = line.find(L'=', bar);
    if (line.empty() || line[0] == L'#' || bar == std::wstring::npos) return;
    if (equals == std::wstring::npos) {
        registry.Delete(line.substr(0, bar), line.substr(bar + 1));
        return;
    }
    std::wstring name = line.substr(bar + 1, equals - bar - 1), type = L"sz";
    if (const size_t colon = name.find(L':'); colon != std::wstring::npos) type = name.substr(colon + 1), name.erase(colon);
    const DWORD code = type == L"dword" ? REG_DWORD : type == L"expand" ? REG_EXPAND_SZ
                     : type == L"binary" ? REG_BINARY : type == L"multi" ? REG_MULTI_SZ : REG_SZ;
    ASSERT_TRUE(registry.Set(line.substr(0, bar), name, code, Replace(Unescape(line.substr(equals + 1)), L"{root}", root)))
        << ToUtf8(line);
}

void ApplyRegistry(RegistryScope& registry, const std::wstring& file, const std::wstring& root) {
    for (const std::wstring& line : Lines(ReadBytes(file))) ApplyRegistryLine(registry, line, root);
}

// Builds a Favorites tree: folders, Internet Shortcut files as the browser writes them, shell links.
void BuildTree(const std::wstring& file, const std::wstring& root) {
    for (const std::wstring& line : Lines(ReadBytes(file))) {
        const size_t first = line.find(L' '), second = line.find(L' ', first + 1);
        if (line.empty() || line[0] == L'#' || first == std::wstring::npos) continue;
        const std::wstring kind = line.substr(0, first), path = root + L"\\" + line.substr(first + 1, second - first - 1);
        const std::wstring rest = second == std::wstring::npos ? L"" : Unescape(line.substr(second + 1));
        if (kind == L"dir") {
            ASSERT_TRUE(WriteBytes(path + L"\\.keep", "") && ::DeleteFileW((path + L"\\.keep").c_str()));
        } else if (kind == L"url") {
            ASSERT_TRUE(WriteBytes(path, "[InternetShortcut]\r\nURL=" + ToUtf8(rest) + "\r\n"));
        } else if (kind == L"file") {
            ASSERT_TRUE(WriteBytes(path, ToUtf8(rest)));
        } else {
            ASSERT_TRUE(WriteBytes(path, ""));  // its folders
            IShellLinkW* link = nullptr;
            IPersistFile* persist = nullptr;
            ASSERT_EQ(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                                         reinterpret_cast<void**>(&link)), S_OK);
            link->SetPath(Replace(rest, L"{root}", root).c_str());
            link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist));
            EXPECT_EQ(persist->Save(path.c_str(), TRUE), S_OK) << ToUtf8(line);
            persist->Release();
            link->Release();
        }
    }
}

class ReaderCases : public ::testing::TestWithParam<std::wstring> {
protected:
    static void SetUpTestSuite() { ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
    static void TearDownTestSuite() { ::CoUninitialize(); }
};

// A found profile keeps its scan's enumeration open while the program runs, so the case roots
// stay until the next run clears them.
std::wstring CaseRoot(const std::wstring& reader, const std::wstring& name) {
    static const ScratchFolder* const readers = new ScratchFolder(L"readers");
    return readers->Path() + L"\\" + reader + L"\\" + name;
}

void Place(const Reader& reader, const std::wstring& input, const std::wstring& root, RegistryScope& registry) {
    const std::wstring extension = input.substr(input.find_last_of(L'.'));
    if (extension == L".reg") return ApplyRegistry(registry, input, root);
    if (extension == L".tree") return BuildTree(input, root);
    ASSERT_TRUE(WriteBytes(root + L"\\" + reader.profileFile, ReadBytes(input)));
    if (!reader.companion.empty()) {
        const std::wstring folder = reader.profileFile.substr(0, reader.profileFile.find_last_of(L'\\') + 1);
        ASSERT_TRUE(WriteBytes(root + L"\\" + folder + reader.companion, ""));
    }
}

TEST_P(ReaderCases, EachCaseReadsAsItsExpectedListing) {
    const Reader& reader = Readers().at(GetParam());
    const std::wstring folder = DataPath(L"readers\\" + GetParam());
    const std::vector<std::wstring> cases = FolderNames(folder, L"*.expected");
    ASSERT_FALSE(cases.empty());
    for (const std::wstring& expectedFile : cases) {
        const std::wstring name = expectedFile.substr(0, expectedFile.size() - 9);
        SCOPED_TRACE(ToUtf8(GetParam() + L"\\" + name));
        const std::wstring root = CaseRoot(GetParam(), name);
        for (const wchar_t* key : kOwnedKeys) ::RegDeleteTreeW(HKEY_CURRENT_USER, key);
        RegistryScope registry;
        ASSERT_TRUE(registry.Set(kShellFolders, L"AppData", REG_EXPAND_SZ, root + L"\\AppData"));
        ASSERT_TRUE(registry.Set(kShellFolders, L"Favorites", REG_EXPAND_SZ, root + L"\\Favorites"));
        ApplyRegistryLine(registry, reader.registration, root);
        if (::GetFileAttributesW((folder + L"\\" + name).c_str()) & FILE_ATTRIBUTE_DIRECTORY)
            CopyTree(folder + L"\\" + name, root);
        std::vector<std::wstring> inputs = FolderNames(folder, name + L".*");
        inputs.erase(std::remove_if(inputs.begin(), inputs.end(), [&](const std::wstring& file) {
            return file == expectedFile || file == name || file.compare(name.size(), 6, L".then.") == 0;
        }), inputs.end());
        for (const std::wstring& input : inputs) Place(reader, folder + L"\\" + input, root, registry);
        if (HasFatalFailure()) return;

        const auto read = reader.make();
        std::vector<std::wstring> actual;
        {
            Watchdog watchdog(ToUtf8(L"reading " + GetParam() + L"\\" + name), 20000);
            actual = read();
            for (const std::wstring& then : FolderNames(folder, name + L".then.*")) {
                Place(reader, folder + L"\\" + then, root, registry);
                actual.push_back(L"(then)");
                for (const std::wstring& text : read()) actual.push_back(text);
            }
        }
        const std::vector<std::wstring> expected = Lines(ReadBytes(folder + L"\\" + expectedFile));
        EXPECT_EQ(actual.size(), expected.size());
        for (size_t i = 0; i < std::max(actual.size(), expected.size()); ++i)
            EXPECT_EQ(i < actual.size() ? ToUtf8(actual[i]) : "(missing)", i < expected.size() ? ToUtf8(expected[i]) : "(none)")
                << "entry " << i + 1;
        for (const wchar_t* key : kOwnedKeys) ::RegDeleteTreeW(HKEY_CURRENT_USER, key);
    }
}

INSTANTIATE_TEST_SUITE_P(Readers, ReaderCases, ::testing::ValuesIn(FolderNames(DataPath(L"readers"), L"*")),
                         [](const ::testing::TestParamInfo<std::wstring>& info) {
                             std::string name = ToUtf8(info.param);
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

}  // namespace
