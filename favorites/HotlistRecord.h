#pragma once
#include <functional>
#include <string>
#include <string_view>

// One record of an Opera hotlist, read from its keyword line (leading white space skipped, case
// ignored): "#FOLDER" followed by its ID and NAME lines opens a folder, a line beginning with "-"
// closes the current one, "#URL" followed by its ID, NAME and URL lines is a link. Every other
// line is Other, and so is every key line a record carries after the ones read here.
enum class HotlistRecordKind { Other, FolderStart, FolderEnd, Link };

struct HotlistRecord {
    HotlistRecordKind kind = HotlistRecordKind::Other;
    std::wstring name;  // FolderStart and Link: what follows the first "NAME=" of the NAME line
    std::wstring url;   // Link: what follows the first "URL=" of the URL line
};

// Reads the record that line opens, taking its further lines from nextLine (the file's next line,
// decoded). Lines are taken by position, not by key: a record that lacks its ID line takes its
// NAME line for the ID. A line without its key gives an empty value; values run to the end of
// the line as they are. Whatever nextLine throws passes through, and the record is not read.
HotlistRecord ReadHotlistRecord(std::wstring_view line, const std::function<std::wstring()>& nextLine);
