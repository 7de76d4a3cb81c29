#include "favorites/HotlistRecord.h"
#include "favorites/TextCuts.h"

namespace {
const wchar_t kFolderKeyword[] = L"#FOLDER";
const wchar_t kFolderEnd[] = L"-";
const wchar_t kLinkKeyword[] = L"#URL";
constexpr std::wstring_view kNameKey = L"NAME=";
constexpr std::wstring_view kUrlKey = L"URL=";

std::wstring_view WithoutLeadingSpace(std::wstring_view text) {
    std::wstring_view::size_type first = 0;
    while (first < text.size() && IsSpace(text[first])) ++first;
    return text.substr(first);
}

std::wstring ValueAfter(std::wstring_view line, std::wstring_view key) {
    const std::wstring_view trimmed = WithoutLeadingSpace(line);
    const std::wstring_view::size_type at = trimmed.find(key);
    if (at == std::wstring_view::npos) return std::wstring();
    return std::wstring(trimmed.substr(at + key.size()));
}
}  // namespace

HotlistRecord ReadHotlistRecord(std::wstring_view line, const std::function<std::wstring()>& nextLine) {
    HotlistRecord record;
    const std::wstring_view trimmed = WithoutLeadingSpace(line);
    if (trimmed.empty()) return record;

    if (StartsWithNoCase(trimmed, kFolderKeyword)) {
        (void)nextLine();  // the ID line
        record.name = ValueAfter(nextLine(), kNameKey);
        record.kind = HotlistRecordKind::FolderStart;
    } else if (StartsWithNoCase(trimmed, kFolderEnd)) {
        record.kind = HotlistRecordKind::FolderEnd;
    } else if (StartsWithNoCase(trimmed, kLinkKeyword)) {
        (void)nextLine();  // the ID line
        const std::wstring nameLine = nextLine();
        const std::wstring urlLine = nextLine();
        record.name = ValueAfter(nameLine, kNameKey);
        record.url = ValueAfter(urlLine, kUrlKey);
        record.kind = HotlistRecordKind::Link;
    }
    return record;
}
