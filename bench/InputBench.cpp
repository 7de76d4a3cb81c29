#include <benchmark/benchmark.h>
#include <windows.h>
#include <fstream>
#include <filesystem>
#include <string>
#include "input/ButtonNameTable.h"
#include "input/LookupButtonKeys.h"
#include "tovutil/KeyNotation.h"

namespace {

// About a million characters (1 Mi, 2 MiB as UTF-16) of key strings of the kinds the drivers and
// mapping files use.
std::wstring MegabyteOfKeys() {
    const std::wstring pieces[] = {L"%{Left}", L"^l^v~", L"{F5}", L"[{Up}]", L"+(hello) world", L"{Tab 3}",
                                   L"%{HOME}", L"{{}{}}", L"^+{End}", L"typed text 123"};
    std::wstring keys;
    for (std::size_t i = 0; keys.size() < (1u << 20); ++i) keys += pieces[i % std::size(pieces)];
    return keys;
}

std::optional<LayoutKey> AsciiLayout(wchar_t ch) {
    if (ch >= L'a' && ch <= L'z') return LayoutKey{static_cast<std::uint8_t>(ch - L'a' + 'A'), false, false, false};
    if (ch >= L'A' && ch <= L'Z') return LayoutKey{static_cast<std::uint8_t>(ch), true, false, false};
    if (ch >= L'0' && ch <= L'9') return LayoutKey{static_cast<std::uint8_t>(ch), false, false, false};
    if (ch == L' ') return LayoutKey{0x20, false, false, false};
    if (ch == L'{') return LayoutKey{0xDB, true, false, false};
    if (ch == L'}') return LayoutKey{0xDD, true, false, false};
    return std::nullopt;
}

std::optional<LayoutKey> SystemLayout(wchar_t ch) { return LayoutKeyFromScan(::VkKeyScanW(ch)); }

void ParseMegabyte(benchmark::State& state, const CharacterKeyMap& layout) {
    const std::wstring keys = MegabyteOfKeys();
    std::size_t events = 0;
    for (auto _ : state) {
        const KeyNotationResult result = ParseKeyNotation(keys, layout);
        if (result.error != SKERR_NONE) {
            state.SkipWithError("the benchmark's key string does not parse");
            return;
        }
        events = result.events.size();
        benchmark::DoNotOptimize(result.events.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * keys.size() * sizeof(wchar_t)));
    state.counters["events"] = static_cast<double>(events);
}

void BM_ParseKeyNotation_TableLayout(benchmark::State& state) { ParseMegabyte(state, AsciiLayout); }
void BM_ParseKeyNotation_SystemLayout(benchmark::State& state) { ParseMegabyte(state, SystemLayout); }

// A mapping file of the given number of class sections, each naming all but the last five
// buttons, and a default section naming every button.
class BenchMappingFile {
public:
    explicit BenchMappingFile(int sections) {
        wchar_t temp[MAX_PATH + 1] = {};
        ::GetTempPathW(MAX_PATH + 1, temp);
        path_ = std::wstring(temp) + L"WbsBench" + std::to_wstring(sections) + L"Sections.QXM";
        std::ofstream file(std::filesystem::path(path_), std::ios::binary | std::ios::trunc);
        ButtonNameTable::Fill();
        const std::vector<CStdStr>& names = ButtonNameTable::Names();
        for (int section = 0; section < sections; ++section) {
            file << "[Button Mapping - BenchClass" << section << "]\r\n";
            for (std::size_t button = 0; button + 5 < names.size(); ++button)
                file << std::string(names[button].begin(), names[button].end()) << "=^{F" << (button % 24 + 1)
                     << "}\r\n";
        }
        file << "[Button Mapping - Default]\r\n";
        for (const CStdStr& name : names) file << std::string(name.begin(), name.end()) << "=%{Left}\r\n";
    }
    ~BenchMappingFile() { ::DeleteFileW(path_.c_str()); }
    const std::wstring& Path() const { return path_; }

private:
    std::wstring path_;
};

// Lookups spread over every section; one in nine buttons falls through to the default section.
void BM_LookupButtonKeys(benchmark::State& state) {
    const int sections = static_cast<int>(state.range(0));
    const BenchMappingFile file(sections);
    const CStdStr path(file.Path());
    CStdStr keys;
    std::uint64_t i = 0;
    for (auto _ : state) {
        const CStdStr className(L"BenchClass" + std::to_wstring(i % static_cast<std::uint64_t>(sections)));
        const bool found = LookupButtonKeys(path, CStdStr(), className, static_cast<unsigned short>(i % 45), keys);
        benchmark::DoNotOptimize(found);
        ++i;
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

}  // namespace

BENCHMARK(BM_ParseKeyNotation_TableLayout)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ParseKeyNotation_SystemLayout)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LookupButtonKeys)->Arg(1)->Arg(200)->Unit(benchmark::kMicrosecond);
