// libFuzzer targets for the pure parsers, built natively by scripts/fuzz.sh: one binary per
// parser, WBS_FUZZ_TARGET naming the function below that it runs. Besides not crashing, each
// result must keep the bounds its parser promises; a broken one aborts, which reports a finding.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include "browsers/WindowInfoReply.h"
#include "commands/OpenCommandCut.h"
#include "favorites/AOLFavoritesRecord.h"
#include "favorites/BookmarkLine.h"
#include "favorites/HotlistRecord.h"
#include "favorites/TextCuts.h"
#include "history/ElementText.h"
#include "tovutil/KeyNotation.h"

namespace {
void Check(bool holds) {
    if (!holds) std::abort();
}

// The bytes as UTF-8 of at most three bytes a character, any other byte as the code unit of its
// own value: every code unit a Windows string can hold, lone surrogates included, and none above,
// whatever the width of wchar_t here.
std::wstring Units(std::string_view bytes) {
    std::wstring text;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const std::size_t extra = byte >= 0xE0 && byte < 0xF0 ? 2 : byte >= 0xC0 && byte < 0xE0 ? 1 : 0;
        unsigned unit = extra == 2 ? byte & 0x0Fu : extra == 1 ? byte & 0x1Fu : byte;
        std::size_t taken = 0;
        while (taken < extra && i + taken + 1 < bytes.size() && (bytes[i + taken + 1] & 0xC0) == 0x80)
            unit = (unit << 6) | (static_cast<unsigned char>(bytes[i + ++taken]) & 0x3Fu);
        if (taken < extra) {
            unit = byte;
            taken = 0;
        }
        text.push_back(static_cast<wchar_t>(unit));
        i += taken;
    }
    return text;
}

void FuzzBookmarkLine(std::string_view bytes) {
    const std::wstring line = Units(bytes);
    const BookmarkLine parsed = TokenizeBookmarkLine(line);
    Check(parsed.name.size() <= line.size() && parsed.url.size() <= line.size());
    Check(parsed.kind == BookmarkLineKind::Bookmark || parsed.url.empty());
}

// The first two bytes choose the range cut, the rest is the text.
void FuzzTextCuts(std::string_view bytes) {
    if (bytes.size() < 2) return;
    const std::wstring text = Units(bytes.substr(2));
    const std::size_t from = static_cast<unsigned char>(bytes[0]) % (text.size() + 1);
    const std::size_t to = from + static_cast<unsigned char>(bytes[1]) % (text.size() - from + 1);
    const CutResult cut = CutRange(text, from, to);
    Check(cut.removed == text.substr(from, to - from) && cut.text.size() <= text.size() - cut.removed.size());
    Check(StripTags(text).size() <= text.size());
    Check(StartsWithNoCase(text, text.substr(0, to - from).c_str()) == !text.empty());
}

void FuzzElementText(std::string_view bytes) {
    const std::wstring line = Units(bytes);
    const std::optional<std::wstring> text = ExtractElementText(line);
    Check(!text || line.rfind(L'<') == line.find(L'>') + 1 + text->size());
}

void FuzzWindowInfoReply(std::string_view bytes) {
    const std::wstring text = Units(bytes);
    const WindowInfoReply reply = ParseWindowInfoReply(text);
    Check(reply.url.size() <= text.size() && reply.title.size() <= text.size());
}

void FuzzOpenCommandCut(std::string_view bytes) {
    const std::wstring command = Units(bytes);
    const std::wstring cut = CutOpenCommand(command);
    Check(command.compare(0, cut.size(), cut) == 0);
}

// Every code unit has a key of its own, read as a VkKeyScanW answer, so all modifier mixes come up;
// U+FFFF is the character the layout cannot type.
void FuzzKeyNotation(std::string_view bytes) {
    const std::wstring keys = Units(bytes);
    const KeyNotationResult result =
        ParseKeyNotation(keys, [](wchar_t ch) { return LayoutKeyFromScan(static_cast<short>(ch)); });
    Check(result.error == SKERR_NONE ? result.errorOffset == 0 : result.events.empty() && result.errorOffset < keys.size());
}

// The lines of the input, the first one the record's keyword line; running out of lines ends the
// read as the end of the file does.
struct EndOfFile {};
void FuzzHotlistRecord(std::string_view bytes) {
    const std::wstring text = Units(bytes);
    std::size_t at = 0;
    const auto next = [&]() {
        if (at > text.size()) throw EndOfFile{};
        const std::size_t end = std::min(text.find(L'\n', at), text.size());
        const std::wstring line = text.substr(at, end - at);
        at = end + 1;
        return line;
    };
    try {
        const HotlistRecord record = ReadHotlistRecord(next(), next);
        Check(record.name.size() <= text.size() && record.url.size() <= text.size());
        Check(record.kind == HotlistRecordKind::Link || record.url.empty());
    } catch (const EndOfFile&) {
    }
}

// Every folder opened is closed, in order, and every view lies inside the file.
void FuzzAOLFavoritesRecord(std::string_view bytes) {
    std::size_t open = 0;
    const auto inside = [&](std::string_view view) {
        return view.empty() || (view.data() >= bytes.data() && view.data() + view.size() <= bytes.data() + bytes.size());
    };
    for (const AOLFavoritesRecord& record : ReadAOLFavoritesRecords(bytes)) {
        Check(inside(record.name) && inside(record.url));
        Check(record.kind != AOLFavoritesRecordKind::FolderEnd || open-- > 0);
        open += record.kind == AOLFavoritesRecordKind::FolderStart ? 1 : 0;
    }
    Check(open == 0);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    WBS_FUZZ_TARGET(std::string_view(reinterpret_cast<const char*>(data), size));
    return 0;
}
