// The pure parsers and the look-ups in mapping files and the registry, one table of cases each under
// tests/data/parsers: tab-separated columns, the last one what the result must render as; "#" lines
// and blank lines are comments.
#include <gtest/gtest.h>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cwctype>
#include <future>
#include "browsers/WindowInfoReply.h"
#include "commands/OpenCommandCut.h"
#include "favorites/BookmarkLine.h"
#include "favorites/TextCuts.h"
#include "history/ElementText.h"
#include "input/CLegacyKeySender.h"
#include "input/LookupButtonKeys.h"
#include "support/TestSupport.h"
#include "tovutil/FindApplicationPath.h"
#include "tovutil/FindMostRecentProgIdPath.h"
#include "tovutil/KeyNotation.h"

using namespace wbstest;

namespace {
using Columns = std::vector<std::wstring>;
using Render = std::wstring (*)(const Columns&);
RegistryScope* registry = nullptr;  // the values the program-path rows set, undone after the table

std::wstring Bracketed(const std::wstring& text) { return L"[" + text + L"]"; }

// The rows are rendered on a thread of their own, so that a parser caught in a loop ends the run
// at once, naming its row, instead of at the test timeout.
void WalkTable(const std::wstring& name, Render render) {
    const std::vector<std::wstring> lines = Lines(ReadBytes(DataPath(L"parsers\\" + name)));
    std::vector<std::tuple<std::size_t, std::wstring, std::wstring>> results;  // line, rendered, expected
    std::atomic<std::size_t> at{0};
    auto walk = std::async(std::launch::async, [&] {
        for (; at < lines.size(); ++at) {
            if (lines[at].empty() || lines[at][0] == L'#') continue;
            Columns row;
            for (std::size_t start = 0, tab = 0; tab != std::wstring::npos; start = tab + 1)
                row.push_back(Unescape(lines[at].substr(start, (tab = lines[at].find(L'\t', start)) - start)));
            std::wstring rendered;
            try { rendered = render(row); } catch (const std::exception& error) { rendered = FromUtf8(error.what()); }
            results.emplace_back(at + 1, rendered, row.back());
        }
    });
    if (walk.wait_for(std::chrono::seconds(10)) != std::future_status::ready) {
        std::fprintf(stderr, "%s:%zu: no result after 10 seconds\n", ToUtf8(name).c_str(), at + 1);
        ::TerminateProcess(::GetCurrentProcess(), 1);
    }
    ASSERT_FALSE(results.empty()) << "no cases in " << ToUtf8(name);
    for (const auto& [line, rendered, expected] : results) EXPECT_EQ(rendered, expected) << ToUtf8(name) << ":" << line;
}

// What VkKeyScanW answers on a US layout that also has the euro sign on AltGr, U+00A7 on Ctrl+1
// and U+00A4 on Alt+2; anything else has no key.
std::optional<LayoutKey> TestLayout(wchar_t ch) {
    static const short scans[] = {0xDB, 0xDD, 0x1DB, 0x1DD, 0x1BB, 0x139, 0x1C0, 0x645, 0x231, 0x432};
    const std::size_t at = std::wstring_view(L"[]{}+(~\x20AC\xA7\xA4").find(ch);
    if (ch < 0x80 && std::iswalnum(ch)) return LayoutKeyFromScan((std::iswupper(ch) ? 0x100 : 0) | std::towupper(ch));
    return LayoutKeyFromScan(at == std::wstring_view::npos ? -1 : scans[at]);
}

// "+" down, "-" up, letters and digits as themselves and other keys in hex, "*" when extended.
std::wstring KeyEvents(const Columns& row) {
    static const char* const errors[] = {"", "NULL", "UNKNOWN_KEY", "UNBALANCED", "BAD_COUNT", "UNTYPABLE", "SEND_FAILED",
                                         "MISPLACED", "NO_MEMORY"};
    const KeyNotationResult result = ParseKeyNotation(row.at(0), TestLayout);
    std::string text = result.error ? errors[result.error] + ("@" + std::to_string(result.errorOffset)) : "";
    for (const KeyEvent& event : result.events) {
        const unsigned key = event.virtualKey;
        char name[8];
        const bool plain = (key >= '0' && key <= '9') || (key >= 'A' && key <= 'Z');
        std::snprintf(name, sizeof name, plain ? "%c%c%s" : "%c%02X%s", event.down ? '+' : '-', key, event.extended ? "*" : "");
        text += (text.empty() ? "" : " ") + std::string(name);
    }
    return text.empty() ? L"-" : FromUtf8(text);
}
}  // namespace

TEST(ParserTables, EveryRowRendersAsItsLastColumn) {
    ResetProcessWideState();
    CStdStr keys(L"kept");  // until a sender has filled the button names every code is beyond them
    EXPECT_FALSE(LookupButtonKeys(DataPath(L"parsers\\buttonmapping.qxm"), CStdStr(), L"Numbered", 0, keys));
    { CLegacyKeySender first, second; }  // the second sender adds no names
    EXPECT_EQ(ParseKeyNotation(L"{a 9999}", TestLayout).events.size(), 19998u);
    RegistryScope scope;
    registry = &scope;
    const std::pair<const wchar_t*, Render> tables[] = {
        {L"keynotation.txt", KeyEvents},
        {L"bookmarkline.txt", [](const Columns& row) {
             static const wchar_t* const kinds[] = {L"Other", L"FolderStart", L"FolderEnd", L"Bookmark"};
             const BookmarkLine line = TokenizeBookmarkLine(row.at(0));
             return kinds[static_cast<int>(line.kind)] + (L"|" + line.name) + L"|" + line.url;
         }},
        {L"texts.txt", [](const Columns& row) -> std::wstring {
             if (row.at(0) == L"StartsWithNoCase")
                 return StartsWithNoCase(row.at(1), row.at(2) == L"(null)" ? nullptr : row[2].c_str()) ? L"true" : L"false";
             if (row[0] != L"CutRange") return Bracketed(StripTags(row.at(1)));
             const CutResult cut = CutRange(row.at(1), std::stoul(row.at(2)), std::stoul(row.at(3)));
             return Bracketed(cut.removed) + L" " + Bracketed(cut.text);
         }},
        {L"elementtext.txt", [](const Columns& row) {
             const std::optional<std::wstring> text = ExtractElementText(row.at(0));
             return text ? Bracketed(*text) : L"(none)";
         }},
        {L"windowinfo.txt", [](const Columns& row) {
             const WindowInfoReply reply = ParseWindowInfoReply(row.at(0));
             return Bracketed(reply.url) + L" " + Bracketed(reply.title);
         }},
        {L"opencommand.txt", [](const Columns& row) { return Bracketed(CutOpenCommand(row.at(0))); }},
        {L"buttonmapping.txt", [](const Columns& row) {
             CStdStr keys(L"kept");
             const auto button = static_cast<unsigned short>(std::stoul(row.at(2)));
             const bool found = LookupButtonKeys(DataPath(L"parsers\\" + row.at(0)), CStdStr(), row.at(1), button, keys);
             if (keys.size() > 80) keys = keys.substr(0, 1) + L" * " + std::to_wstring(keys.size());
             return (found ? L"" : L"(none) ") + Bracketed(keys);
         }},
        {L"programpaths.txt", [](const Columns& row) -> std::wstring {
             const std::wstring& value = row.back();
             if (row.at(0).compare(0, 2, L"HK") == 0) {
                 const std::wstring data = value == L"(empty)" ? L"" : value;
                 const bool done = value == L"-" ? registry->Delete(row[0], L"") : registry->Set(row[0], L"", REG_SZ, data);
                 return done ? value : L"(failed)";
             }
             CStdStr path(L"untouched");
             const bool found = row[0] == L"AppPath" ? FindApplicationPath(row.at(1), row.at(2), path)
                                                     : FindMostRecentProgIdPath(row.at(1), path);
             return (found ? L"" : L"(none) ") + Bracketed(path);
         }},
    };
    for (const auto& [file, render] : tables) WalkTable(file, render);
}
