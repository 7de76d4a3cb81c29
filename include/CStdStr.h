#pragma once
#include <string>
#include <string_view>
#include "WbsApi.h"

// The wide string used at every interface. It carries the code page used when it is filled from
// 8-bit text (0: the system ANSI code page).
class WBS_API CStdStr : public std::wstring {
public:
    CStdStr() = default;
    // A pointer with every bit above bit 15 clear is a string-resource identifier: the string is
    // loaded from this module's string table (empty when absent). Null therefore gives "".
    CStdStr(const wchar_t* text);
    CStdStr(const wchar_t* text, size_type count) : std::wstring(text, count) {}
    CStdStr(const std::wstring& text, unsigned int codePage = 0)
        : std::wstring(text), codePage_(codePage) {}
    CStdStr(std::wstring&& text) noexcept : std::wstring(std::move(text)) {}
    CStdStr(std::wstring_view text) : std::wstring(text) {}
    CStdStr(size_type count, wchar_t ch) : std::wstring(count, ch) {}

    CStdStr& operator=(const wchar_t* text);
    CStdStr& operator=(const std::wstring& text) { std::wstring::operator=(text); return *this; }
    CStdStr& operator=(std::wstring&& text) noexcept { std::wstring::operator=(std::move(text)); return *this; }

    unsigned int CodePage() const noexcept { return codePage_; }
    void SetCodePage(unsigned int codePage) noexcept { codePage_ = codePage; }

    // The text of a string resource of this module; empty when there is none.
    static std::wstring LoadResourceString(unsigned int id);

private:
    unsigned int codePage_ = 0;
};
