// libFuzzer targets for the pure parsers, built natively by scripts/fuzz.sh: one binary per
// parser, WBS_FUZZ_TARGET naming the function below that it runs with the input's bytes and the
// text they spell. Besides not crashing, a result must keep the bounds its parser promises; a
// broken one aborts, which reports a finding.
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include "browsers/WindowInfoReply.h"
#include "commands/OpenCommandCut.h"
#include "favorites/AOLFavoritesRecord.h"
#include "favorites/BookmarkLine.h"
#include "favorites/HotlistRecord.h"
#include "favorites/TextCuts.h"
#include "history/ElementText.h"
#include "tovutil/KeyNotation.h"

namespace {
void Check(bool holds) { if (!holds) std::abort(); }

// Each byte is the code unit of its own value, except that 0xFF and the two bytes after it give
// the unit they spell, high byte first: every unit a Windows string can hold, lone surrogates
// included, and none above, whatever the width of wchar_t here.
std::wstring Units(std::string_view bytes) {
    std::wstring text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[at]); };
        const bool spelt = byte(i) == 0xFF && i + 2 < bytes.size();
        text.push_back(static_cast<wchar_t>(spelt ? byte(i + 1) * 256u + byte(i + 2) : byte(i)));
        i += spelt ? 2 : 0;
    }
    return text;
}

void FuzzBookmarkLine(std::string_view, const std::wstring& line) {
    const BookmarkLine parsed = TokenizeBookmarkLine(line);
    Check(parsed.name.size() <= line.size() && (parsed.kind == BookmarkLineKind::Bookmark || parsed.url.empty()));
}

// The first two units choose the range cut from the rest.
void FuzzTextCuts(std::string_view, const std::wstring& units) {
    const std::wstring text = units.size() < 2 ? std::wstring() : units.substr(2);
    const std::size_t from = units.size() < 2 ? 0 : units[0] % (text.size() + 1);
    const std::size_t to = units.size() < 2 ? 0 : from + units[1] % (text.size() - from + 1);
    Check(CutRange(text, from, to).removed == text.substr(from, to - from) && StripTags(text).size() <= text.size());
    Check(StartsWithNoCase(text, text.substr(0, to - from).c_str()) == !text.empty());
}

void FuzzElementText(std::string_view, const std::wstring& line) {
    const std::optional<std::wstring> text = ExtractElementText(line);
    Check(!text || line.rfind(L'<') == line.find(L'>') + 1 + text->size());
}

void FuzzWindowInfoReply(std::string_view, const std::wstring& text) {
    const WindowInfoReply reply = ParseWindowInfoReply(text);
    Check(reply.url.size() <= text.size() && reply.title.size() <= text.size());
}

void FuzzOpenCommandCut(std::string_view, const std::wstring& command) { Check(command.rfind(CutOpenCommand(command), 0) == 0); }

// Every code unit has a key, read as a VkKeyScanW answer, so all modifier mixes come up; U+FFFF
// is the character the layout cannot type.
void FuzzKeyNotation(std::string_view, const std::wstring& keys) {
    const KeyNotationResult result = ParseKeyNotation(keys, [](wchar_t ch) { return LayoutKeyFromScan(static_cast<short>(ch)); });
    Check(result.error == SKERR_NONE ? result.errorOffset == 0 : result.events.empty() && result.errorOffset < keys.size());
}

// The text's lines, the first the record's keyword line; past the last come empty lines.
void FuzzHotlistRecord(std::string_view, const std::wstring& text) {
    std::wistringstream lines(text);
    const auto next = [&lines] {
        std::wstring line;
        std::getline(lines, line);
        return line;
    };
    const HotlistRecord record = ReadHotlistRecord(next(), next);
    Check(record.kind == HotlistRecordKind::Link || record.url.empty());
}

// Every folder opened is closed, in order, and every view lies inside the file.
void FuzzAOLFavoritesRecord(std::string_view bytes, const std::wstring&) {
    const auto inside = [bytes](std::string_view view) {
        return view.empty() || (view.data() >= bytes.data() && view.data() + view.size() <= bytes.data() + bytes.size());
    };
    std::size_t open = 0;
    for (const AOLFavoritesRecord& record : ReadAOLFavoritesRecords(bytes)) {
        Check(inside(record.name) && inside(record.url) && (record.kind != AOLFavoritesRecordKind::FolderEnd || open-- > 0));
        open += record.kind == AOLFavoritesRecordKind::FolderStart ? 1 : 0;
    }
    Check(open == 0);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    WBS_FUZZ_TARGET(bytes, Units(bytes));
    return 0;
}
