#include <benchmark/benchmark.h>
#include <windows.h>
#include <algorithm>
#include <memory>
#include <string>
#include "core/ScopedFileHandle.h"
#include "core/ScopedRegKey.h"
#include "favorites/cFirefoxFavoritesFinder.h"
#include "favorites/cLineFile.h"
#include "history/cFirefoxHistoryFinder.h"
#include "support/RegistryGuard.h"
#include "support/ScratchFolder.h"

namespace {

const wchar_t kUserShellFolders[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";

// The user's application-data folder pointed at a scratch folder for the whole run, with one
// Firefox profile in it.
class BenchAppData {
public:
    BenchAppData() {
        ScopedRegKey key;
        ::RegOpenKeyExW(HKEY_CURRENT_USER, kUserShellFolders, 0, KEY_SET_VALUE, key.Receive());
        const std::wstring& folder = scratch_.Path();
        ::RegSetValueExW(key.get(), L"AppData", 0, REG_EXPAND_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                         static_cast<DWORD>((folder.size() + 1) * sizeof(wchar_t)));
        for (const wchar_t* part : {L"\\Mozilla", L"\\Mozilla\\Firefox", L"\\Mozilla\\Firefox\\Profiles", kProfile})
            ::CreateDirectoryW((folder + part).c_str(), nullptr);
    }
    std::wstring File(const wchar_t* name) const { return scratch_.Path() + kProfile + L"\\" + name; }

private:
    static constexpr const wchar_t* kProfile = L"\\Mozilla\\Firefox\\Profiles\\bench.default";
    wbstest::RegistryGuard location_{HKEY_CURRENT_USER, kUserShellFolders, L"AppData"};
    wbstest::ScratchFolder scratch_{L"MozillaBench"};
};

BenchAppData& AppData() {
    static BenchAppData appData;
    return appData;
}

bool WriteBytes(const std::wstring& path, const std::string& bytes) {
    ScopedFileHandle file(
        ::CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file && ::WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) &&
           written == bytes.size();
}

// A Firefox bookmarks.html: folders of fifty bookmarks each, every bookmark with the attributes
// Firefox writes (about 250 bytes a line).
std::string BookmarksHtml(int folders) {
    std::string html =
        "<!DOCTYPE NETSCAPE-Bookmark-file-1>\n<META HTTP-EQUIV=\"Content-Type\" CONTENT=\"text/html; "
        "charset=UTF-8\">\n<TITLE>Bookmarks</TITLE>\n<H1>Bookmarks Menu</H1>\n\n<DL><p>\n";
    for (int folder = 0; folder < folders; ++folder) {
        const std::string f = std::to_string(folder);
        html += "    <DT><H3 ADD_DATE=\"1199145600\" LAST_MODIFIED=\"1199145700\" ID=\"rdf:#$F" + f + "\">Folder " + f +
                "</H3>\n    <DL><p>\n";
        for (int mark = 0; mark < 50; ++mark) {
            const std::string m = f + "." + std::to_string(mark);
            html += "        <DT><A HREF=\"http://www.example.com/section/" + m +
                    "/index.html?ref=bookmarks\" ADD_DATE=\"1199145600\" LAST_MODIFIED=\"1199145700\" "
                    "ICON=\"data:image/png;base64,iVBORw0KGgoAAAANSUhEUgAAABAAAAAQ\" LAST_CHARSET=\"UTF-8\" "
                    "ID=\"rdf:#$B" + m + "\">Caf\xC3\xA9 page " + m + "</A>\n";
        }
        html += "    </DL><p>\n";
    }
    return html + "</DL><p>\n";
}

// A localstore.rdf of the given number of lines, nearly all of them one-line elements.
std::string LocalStore(int lines) {
    std::string rdf = "<?xml version=\"1.0\"?>\n<RDF:RDF xmlns:RDF=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">\n"
                      "  <RDF:Seq RDF:about=\"nc:urlbar-history\">\n";
    for (int line = 3; line < lines - 2; ++line)
        rdf += "    <RDF:li>http://www.example.com/typed/address/" + std::to_string(line) + "</RDF:li>\n";
    return rdf + "  </RDF:Seq>\n</RDF:RDF>\n";
}

double Seconds(const LARGE_INTEGER& from, const LARGE_INTEGER& to) {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

// The best of five plain ReadFile loops over the file, 64 KiB at a time.
double ReadFileSeconds(const std::wstring& path) {
    double best = 1e9;
    std::unique_ptr<char[]> chunk(new char[1 << 16]);
    for (int round = 0; round < 5; ++round) {
        LARGE_INTEGER start, end;
        ::QueryPerformanceCounter(&start);
        ScopedFileHandle file(
            ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
        DWORD read = 0;
        while (::ReadFile(file.get(), chunk.get(), 1 << 16, &read, nullptr) && read > 0)
            benchmark::DoNotOptimize(chunk.get());
        ::QueryPerformanceCounter(&end);
        best = std::min(best, Seconds(start, end));
    }
    return best;
}

// Runs read (which answers the entries it produced) for every iteration and reports entries per
// second and how many times slower than a plain ReadFile loop over the same bytes it is.
template <typename Read>
void MeasureReader(benchmark::State& state, const std::wstring& path, const std::string& bytes, Read read) {
    if (!WriteBytes(path, bytes)) {
        state.SkipWithError("the benchmark file could not be written");
        return;
    }
    const double readFile = ReadFileSeconds(path);
    std::size_t entries = 0;
    LARGE_INTEGER start, end;
    ::QueryPerformanceCounter(&start);
    for (auto _ : state) entries = read();
    ::QueryPerformanceCounter(&end);
    if (entries == 0) {
        state.SkipWithError("the reader found nothing");
        return;
    }
    const double perRead = Seconds(start, end) / static_cast<double>(state.iterations());
    state.SetComplexityN(static_cast<std::int64_t>(bytes.size()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes.size()));
    state.counters["entries"] = static_cast<double>(entries);
    state.counters["entries/s"] = benchmark::Counter(static_cast<double>(entries * state.iterations()),
                                                     benchmark::Counter::kIsRate);
    state.counters["x_ReadFile"] = perRead / readFile;
}

// Sizes 1, 4 and 16 times 125 folders; the largest is 100,000 bookmarks in 2,000 folders.
void BM_FirefoxBookmarks(benchmark::State& state) {
    const std::string html = BookmarksHtml(static_cast<int>(125 * state.range(0)));
    cFirefoxFavoritesFinder finder;
    FavoritesList list;
    MeasureReader(state, AppData().File(L"bookmarks.html"), html, [&] {
        finder.GetFavorites(list);
        return list.size();
    });
}
BENCHMARK(BM_FirefoxBookmarks)->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// The largest bookmark file's lines only read and converted from UTF-8, nothing parsed: the
// share of the reader's time that is the stream's.
void BM_BookmarkLinesOnly(benchmark::State& state) {
    const std::string html = BookmarksHtml(2000);
    const std::wstring path = AppData().File(L"bookmarks.html");
    MeasureReader(state, path, html, [&] {
        const CStdStr name(path);
        cLineFile file(name);
        std::size_t lines = 0;
        std::string_view line;
        while (file.ReadLine(line)) lines += BytesToWide(line, CP_UTF8).empty() ? 0 : 1;
        return lines;
    });
}
BENCHMARK(BM_BookmarkLinesOnly)->Unit(benchmark::kMillisecond);

// Sizes 1, 4 and 16 times 10,000 lines.
void BM_FirefoxHistory(benchmark::State& state) {
    const std::string rdf = LocalStore(static_cast<int>(10000 * state.range(0)));
    cFirefoxHistoryFinder finder;
    MeasureReader(state, AppData().File(L"localstore.rdf"), rdf, [&] {
        HistoryList list;
        finder.FindHistory(list);
        return list.size();
    });
}
BENCHMARK(BM_FirefoxHistory)->Arg(1)->Arg(4)->Arg(16)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

}  // namespace
