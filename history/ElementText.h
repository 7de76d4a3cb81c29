#pragma once
#include <optional>
#include <string>
#include <string_view>

// The text of an element written on one line: what lies between the line's first ">" and its
// last "<". Nothing when either is missing or the "<" does not come after the ">".
std::optional<std::wstring> ExtractElementText(std::wstring_view line);
// The same text as a view into line.
std::optional<std::wstring_view> ElementTextIn(std::wstring_view line);
