// Each reader on a generated store, beside its floor: the same bytes read whole and turned into
// wide text once (the file readers), the same folder walk with the shell's shortcut object for
// each file (Internet Explorer's favorites), the same values enumerated (typed addresses).
#include <benchmark/benchmark.h>
#include <windows.h>
#include <intshcut.h>
#include <objbase.h>
#include <shlguid.h>
#include <string>
#include <string_view>
#include <vector>
#include "BenchRegistration.h"
#include "BenchStores.h"
#include "core/ComPtr.h"
#include "core/ScopedFindHandle.h"
#include "core/ScopedRegKey.h"
#include "favorites/cAOLFavoritesFinder.h"
#include "favorites/cFirefoxFavoritesFinder.h"
#include "favorites/cIEFavoritesFinder.h"
#include "favorites/cLineFile.h"
#include "favorites/cOperaFavoritesFinder.h"
#include "history/cAOLHistoryFinder.h"
#include "history/cFirefoxHistoryFinder.h"
#include "history/cIEHistoryFinder.h"
#include "history/cOperaHistoryFinder.h"

namespace wbsbench {

namespace {
constexpr int kFavoritesFolders = 50;
constexpr int kShortcutsPerFolder = 40;

template <typename List>
std::vector<std::wstring> Texts(const List& list) {
    std::vector<std::wstring> texts;
    for (const auto& entry : list) texts.push_back(entry.Text);
    return texts;
}

// One read of a favorites finder, which clears the list it fills.
template <typename Finder>
struct FavoritesRead {
    using List = FavoritesList;
    std::size_t operator()() {
        (void)finder.GetFavorites(list);
        return list.size();
    }
    std::vector<std::wstring> ReadTexts() {
        (void)(*this)();
        return Texts(list);
    }
    Finder finder;
    FavoritesList list;
};

// One read of a history finder; finders append, so every read gets a new list.
template <typename Finder>
struct HistoryRead {
    using List = HistoryList;
    std::size_t operator()() {
        HistoryList list;
        (void)finder.FindHistory(list);
        return list.size();
    }
    std::vector<std::wstring> ReadTexts() {
        HistoryList list;
        (void)finder.FindHistory(list);
        return Texts(list);
    }
    Finder finder;
};

enum class Floor { ReadUtf8, ReadWiden };

// The list a reader hands out, made from its texts and dropped: the allocations every entry
// needs, whatever reads it.
template <typename List>
std::size_t MakeList(const std::vector<std::wstring>& texts) {
    List list;
    for (const std::wstring& text : texts) list.Append(typename List::value_type{CStdStr(text), CStdStr()});
    return list.size();
}

// The reading model of the line readers without any parsing: the text stream read line by line
// into the file-sized buffer, each line decoded (or widened) into one reused buffer.
std::size_t StreamLines(const std::wstring& path, Floor floor) {
    cLineFile file{CStdStr(path)};
    std::string_view bytes;
    std::wstring line;
    std::size_t lines = 0;
    while (file.ReadLine(bytes)) {
        if (floor == Floor::ReadUtf8)
            BytesToWide(bytes, CP_UTF8, line);
        else
            WidenBytes(bytes, line);
        lines += line.empty() ? 0 : 1;
    }
    return lines;
}

// The reader and its floors on the same file: "Reader/<name>/<size>", the bytes read whole and
// decoded once "Floor/<ReadUtf8|ReadWiden>/<name>/<size>", the list it fills
// "Floor/EntryList/<name>/<size>", and for line readers the lines alone
// "Floor/TextStreamLines/<name>/<size>".
template <typename Read>
void RegisterFileReader(const std::string& name, const wchar_t* file, std::string (*generate)(int), int size,
                        Floor floor, bool lineReader = true) {
    const std::string suffix = name + "/" + std::to_string(size);
    Register("Reader/" + suffix, [=](benchmark::State& state) {
        const std::size_t bytes = Stores().Place(file, generate, size);
        Read read;
        std::size_t entries = 0;
        for (auto _ : state) entries = read();
        if (bytes == 0 || entries == 0) state.SkipWithError("the store was not written or the reader found nothing");
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
        state.counters["entries"] = static_cast<double>(entries);
    });
    Register(std::string(floor == Floor::ReadUtf8 ? "Floor/ReadUtf8/" : "Floor/ReadWiden/") + suffix,
             [=](benchmark::State& state) {
                 const std::size_t bytes = Stores().Place(file, generate, size);
                 const std::wstring path = Stores().Path(file);
                 std::size_t characters = 0;
                 for (auto _ : state)
                     benchmark::DoNotOptimize(characters = floor == Floor::ReadUtf8 ? ReadAndDecode(path, CP_UTF8)
                                                                                    : ReadAndWiden(path));
                 if (characters == 0) state.SkipWithError("the store was not read");
                 state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
             });
    Register("Floor/EntryList/" + suffix, [=](benchmark::State& state) {
        (void)Stores().Place(file, generate, size);
        const std::vector<std::wstring> texts = Read().ReadTexts();
        std::size_t entries = 0;
        for (auto _ : state) entries = MakeList<typename Read::List>(texts);
        if (entries == 0) state.SkipWithError("the reader found nothing to list");
    });
    if (!lineReader) return;
    Register("Floor/TextStreamLines/" + suffix, [=](benchmark::State& state) {
        (void)Stores().Place(file, generate, size);
        const std::wstring path = Stores().Path(file);
        std::size_t lines = 0;
        for (auto _ : state) lines = StreamLines(path, floor);
        if (lines == 0) state.SkipWithError("the store was not read");
    });
}

// Internet Explorer's Favorites: folders of Internet Shortcut files as the browser writes them.
bool MakeFavoritesTree() {
    for (int f = 0; f < kFavoritesFolders; ++f) {
        const std::wstring folder = std::wstring(BenchStores::kFavorites) + L"\\Folder " + std::to_wstring(f) + L"\\";
        for (int s = 0; s < kShortcutsPerFolder; ++s) {
            const std::string url = "http://site" + std::to_string(f) + ".example.com/page/" + std::to_string(s);
            if (!wbstest::WriteBytes(Stores().Path(folder + L"Shortcut " + std::to_wstring(s) + L".url"),
                                     "[InternetShortcut]\r\nURL=" + url + "\r\n"))
                return false;
        }
    }
    return true;
}

bool FavoritesTreeMade() {
    static const bool made = MakeFavoritesTree();
    return made;
}

// The walk without the list: every folder listed, every shortcut loaded into the shell's object
// and its address taken.
std::size_t WalkWithShellObjects(const std::wstring& folder) {
    std::size_t shortcuts = 0;
    WIN32_FIND_DATAW found = {};
    ScopedFindHandle search(::FindFirstFileW((folder + L"*.*").c_str(), &found));
    if (!search) return 0;
    do {
        const std::wstring name = found.cFileName;
        if ((found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
            if (name != L"." && name != L"..") shortcuts += WalkWithShellObjects(folder + name + L"\\");
            continue;
        }
        ComPtr<IUniformResourceLocatorW> shortcut;
        ComPtr<IPersistFile> file;
        LPWSTR url = nullptr;
        if (SUCCEEDED(::CoCreateInstance(CLSID_InternetShortcut, nullptr, CLSCTX_INPROC_SERVER,
                                         IID_IUniformResourceLocatorW, shortcut.ReceiveVoid())) &&
            SUCCEEDED(shortcut->QueryInterface(IID_IPersistFile, file.ReceiveVoid())) &&
            SUCCEEDED(file->Load((folder + name).c_str(), STGM_READ)) && SUCCEEDED(shortcut->GetURL(&url)) &&
            url != nullptr) {
            ::CoTaskMemFree(url);
            ++shortcuts;
        }
    } while (::FindNextFileW(search.get(), &found));
    return shortcuts;
}

std::size_t EnumerateTypedUrls() {
    ScopedRegKey key;
    if (::RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Internet Explorer\\TypedURLs", 0, KEY_READ,
                        key.Receive()) != ERROR_SUCCESS)
        return 0;
    std::size_t values = 0;
    for (DWORD index = 0;; ++index) {
        wchar_t name[256];
        wchar_t data[129];
        DWORD nameLength = 256;
        DWORD dataSize = 256;
        if (::RegEnumValueW(key.get(), index, name, &nameLength, nullptr, nullptr, reinterpret_cast<BYTE*>(data),
                            &dataSize) != ERROR_SUCCESS)
            return values;
        ++values;
    }
}
}  // namespace

void RegisterReaderBenchmarks() {
    for (const int bookmarks : {1000, 6250, 10000, 100000})
        RegisterFileReader<FavoritesRead<cFirefoxFavoritesFinder>>("FirefoxBookmarks", BenchStores::kFirefoxBookmarks,
                                                                   BookmarksHtml, bookmarks, Floor::ReadUtf8);
    for (const int lines : {10000, 160000})
        RegisterFileReader<HistoryRead<cFirefoxHistoryFinder>>("FirefoxHistory", BenchStores::kFirefoxHistory,
                                                               LocalStoreRdf, lines, Floor::ReadWiden);
    RegisterFileReader<FavoritesRead<cOperaFavoritesFinder>>("OperaHotlist", BenchStores::kOperaHotlist, OperaHotlist,
                                                             100000, Floor::ReadUtf8);
    RegisterFileReader<HistoryRead<cOperaHistoryFinder>>("OperaHistory", BenchStores::kOperaHistory, OperaDirectory,
                                                         10000, Floor::ReadWiden);
    // The AOL files are not read by lines: favorites are binary records, the history is split at
    // the separator the file declares.
    RegisterFileReader<FavoritesRead<cAOLFavoritesFinder>>("AOLFavorites", BenchStores::kAOLFavorites, AOLFavorites,
                                                           10000, Floor::ReadUtf8, false);
    RegisterFileReader<HistoryRead<cAOLHistoryFinder>>("AOLHistory", BenchStores::kAOLHistory, AOLHistory, 10000,
                                                       Floor::ReadWiden, false);

    const int shortcuts = kFavoritesFolders * kShortcutsPerFolder;
    const std::string ieSuffix = "IEFavorites/" + std::to_string(shortcuts);
    Register("Reader/" + ieSuffix, [=](benchmark::State& state) {
        if (!FavoritesTreeMade()) state.SkipWithError("the Favorites folder was not made");
        FavoritesRead<cIEFavoritesFinder> read;
        std::size_t entries = 0;
        for (auto _ : state) entries = read();
        state.counters["entries"] = static_cast<double>(entries);
    })->Repetitions(3);  // seconds each, spent in the shell's objects
    Register("Floor/ShellWalk/" + ieSuffix, [=](benchmark::State& state) {
        if (!FavoritesTreeMade()) state.SkipWithError("the Favorites folder was not made");
        const std::wstring root = Stores().Path(BenchStores::kFavorites) + L"\\";
        std::size_t walked = 0;
        for (auto _ : state) walked = WalkWithShellObjects(root);
        if (walked != static_cast<std::size_t>(shortcuts)) state.SkipWithError("the walk missed shortcuts");
    })->Repetitions(3);

    Register("Reader/TypedURLs/50", [](benchmark::State& state) {
        (void)Stores();
        HistoryRead<cIEHistoryFinder> read;
        std::size_t entries = 0;
        for (auto _ : state) entries = read();
        if (entries != 50) state.SkipWithError("the typed addresses were not all read");
    });
    Register("Floor/RegEnumValue/TypedURLs/50", [](benchmark::State& state) {
        (void)Stores();
        std::size_t values = 0;
        for (auto _ : state) values = EnumerateTypedUrls();
        if (values != 50) state.SkipWithError("the typed addresses were not all enumerated");
    });
}

}  // namespace wbsbench
