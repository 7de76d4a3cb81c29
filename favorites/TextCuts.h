#pragma once
#include <string>
#include <string_view>

// Text operations of the bookmark and hotlist readers: plain wide strings, no platform calls.

// The C runtime's iswspace. ASCII is answered without the call: every locale classifies it alike,
// and the readers ask for every character they skip.
bool IsSpace(wchar_t ch) noexcept;

// True when text is at least as long as prefix and begins with it, letters compared without
// regard to case. An empty text or a null prefix never matches.
bool StartsWithNoCase(std::wstring_view text, const wchar_t* prefix);

struct CutResult {
    std::wstring text;     // what remains, white space trimmed at both ends
    std::wstring removed;  // the characters of [from, to)
};
// Removes the characters [from, to) of text, then trims white space at both ends of what remains.
CutResult CutRange(std::wstring_view text, std::wstring::size_type from, std::wstring::size_type to);

// Removes every "<...>" tag, searching again from the start after each removal; each removal
// trims white space. A "<" with no ">" after it ends the stripping: it and the rest stay as they
// stand.
std::wstring StripTags(std::wstring_view text);
// The same into stripped, whose storage serves call after call; text must not lie in stripped.
void StripTags(std::wstring_view text, std::wstring& stripped);
