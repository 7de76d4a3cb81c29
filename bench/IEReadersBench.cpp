// Internet Explorer's readers on stores of a realistic size: a Favorites folder of 2,000 shortcuts
// in 50 folders read through the shell's shortcut objects, and a TypedURLs key of 50 addresses.
#include <benchmark/benchmark.h>
#include <windows.h>
#include <objbase.h>
#include <string>
#include "core/ScopedFileHandle.h"
#include "favorites/cIEFavoritesFinder.h"
#include "history/cIEHistoryFinder.h"
#include "support/RegistryGuard.h"
#include "support/ScratchFolder.h"
#include "tovutil/CRegistry.h"

namespace {
const wchar_t kUserShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
const wchar_t kTypedUrls[] = L"Software\\Microsoft\\Internet Explorer\\TypedURLs";

// Points the user's Favorites folder at a generated tree for the benchmark's length; the folder
// and the registration go back as they were afterwards.
class GeneratedFavorites {
public:
    GeneratedFavorites(int folders, int shortcutsPerFolder) : root_(L"BenchFavorites") {
        for (int f = 0; f < folders; ++f) {
            const std::wstring folder = root_.File(L"Folder " + std::to_wstring(f));
            ::CreateDirectoryW(folder.c_str(), nullptr);
            for (int s = 0; s < shortcutsPerFolder; ++s) {
                const std::string url = "http://site" + std::to_string(f) + ".example.invalid/page/" + std::to_string(s);
                WriteText(folder + L"\\Shortcut " + std::to_wstring(s) + L".url", "[InternetShortcut]\r\nURL=" + url + "\r\n");
            }
        }
        CRegistry shellFolders;
        if (shellFolders.Open(HKEY_CURRENT_USER, kUserShellFolders, KEY_WRITE) == ERROR_SUCCESS)
            (void)shellFolders.WriteStringValue(L"Favorites", root_.Path().c_str());
    }

private:
    static void WriteText(const std::wstring& path, const std::string& text) {
        ScopedFileHandle file(::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        if (file) ::WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
    }

    wbstest::RegistryGuard registration_{HKEY_CURRENT_USER, kUserShellFolders, L"Favorites"};
    wbstest::ScratchFolder root_;
};

void BM_IEFavorites_2000ShortcutsIn50Folders(benchmark::State& state) {
    const HRESULT com = ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    {
        GeneratedFavorites favorites(50, 40);
        cIEFavoritesFinder finder;
        FavoritesList list;
        for (auto _ : state) {
            if (!finder.GetFavorites(list)) {
                state.SkipWithError("the Favorites folder was not found");
                break;
            }
        }
        state.counters["entries"] = static_cast<double>(list.size());
        state.counters["shortcuts/s"] =
            benchmark::Counter(static_cast<double>(state.iterations()) * 2000.0, benchmark::Counter::kIsRate);
    }
    if (SUCCEEDED(com)) ::CoUninitialize();
}
BENCHMARK(BM_IEFavorites_2000ShortcutsIn50Folders)->Unit(benchmark::kMillisecond);

void BM_IETypedUrls_50Values(benchmark::State& state) {
    // A fresh prefix has no TypedURLs key; the benchmark makes one and removes it again.
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls);
    {
        CRegistry typed;
        if (typed.Create(HKEY_CURRENT_USER, kTypedUrls) != ERROR_SUCCESS) {
            state.SkipWithError("cannot make the TypedURLs key");
            return;
        }
        for (int i = 1; i <= 50; ++i) {
            const std::wstring url = L"http://typed" + std::to_wstring(i) + L".example.invalid/";
            (void)typed.WriteStringValue((L"url" + std::to_wstring(i)).c_str(), url.c_str());
        }
    }
    cIEHistoryFinder finder;
    size_t entries = 0;
    for (auto _ : state) {
        HistoryList list;
        finder.FindHistory(list);
        entries = list.size();
        benchmark::DoNotOptimize(list.size());
    }
    state.counters["entries"] = static_cast<double>(entries);
    state.counters["values/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * 50.0, benchmark::Counter::kIsRate);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, kTypedUrls);
}
BENCHMARK(BM_IETypedUrls_50Values)->Unit(benchmark::kMicrosecond);
}  // namespace
