// Each reader on a generated store, beside its floor: the same bytes read whole and turned into
// wide text once (the file readers), the same folder walk with the shell's shortcut object for
// each file (Internet Explorer's favorites), the same values enumerated (typed addresses).
#include <benchmark/benchmark.h>
#include <windows.h>
#include <intshcut.h>
#include <objbase.h>
#include <shlguid.h>
#include <string>
#include "BenchRegistration.h"
#include "BenchStores.h"
#include "core/ComPtr.h"
#include "core/ScopedFindHandle.h"
#include "core/ScopedRegKey.h"
#include "favorites/cAOLFavoritesFinder.h"
#include "favorites/cFirefoxFavoritesFinder.h"
#include "favorites/cIEFavoritesFinder.h"
#include "favorites/cOperaFavoritesFinder.h"
#include "history/cAOLHistoryFinder.h"
#include "history/cFirefoxHistoryFinder.h"
#include "history/cIEHistoryFinder.h"
#include "history/cOperaHistoryFinder.h"

namespace wbsbench {

namespace {
constexpr int kFavoritesFolders = 50;
constexpr int kShortcutsPerFolder = 40;

// One read of a favorites finder, which clears the list it fills.
template <typename Finder>
struct FavoritesRead {
    std::size_t operator()() {
        (void)finder.GetFavorites(list);
        return list.size();
    }
    Finder finder;
    FavoritesList list;
};

// One read of a history finder; finders append, so every read gets a new list.
template <typename Finder>
struct HistoryRead {
    std::size_t operator()() {
        HistoryList list;
        (void)finder.FindHistory(list);
        return list.size();
    }
    Finder finder;
};

enum class Floor { ReadUtf8, ReadWiden };

// The reader and its floor on the same file, as "Reader/<name>/<size>" and
// "Floor/<ReadUtf8|ReadWiden>/<name>/<size>".
template <typename Read>
void RegisterFileReader(const std::string& name, const wchar_t* file, std::string (*generate)(int), int size,
                        Floor floor) {
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
    RegisterFileReader<FavoritesRead<cAOLFavoritesFinder>>("AOLFavorites", BenchStores::kAOLFavorites, AOLFavorites,
                                                           10000, Floor::ReadUtf8);
    RegisterFileReader<HistoryRead<cAOLHistoryFinder>>("AOLHistory", BenchStores::kAOLHistory, AOLHistory, 10000,
                                                       Floor::ReadWiden);

    const int shortcuts = kFavoritesFolders * kShortcutsPerFolder;
    const std::string ieSuffix = "IEFavorites/" + std::to_string(shortcuts);
    Register("Reader/" + ieSuffix, [=](benchmark::State& state) {
        if (!FavoritesTreeMade()) state.SkipWithError("the Favorites folder was not made");
        FavoritesRead<cIEFavoritesFinder> read;
        std::size_t entries = 0;
        for (auto _ : state) entries = read();
        state.counters["entries"] = static_cast<double>(entries);
    });
    Register("Floor/ShellWalk/" + ieSuffix, [=](benchmark::State& state) {
        if (!FavoritesTreeMade()) state.SkipWithError("the Favorites folder was not made");
        const std::wstring root = Stores().Path(BenchStores::kFavorites) + L"\\";
        std::size_t walked = 0;
        for (auto _ : state) walked = WalkWithShellObjects(root);
        if (walked != static_cast<std::size_t>(shortcuts)) state.SkipWithError("the walk missed shortcuts");
    });

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
