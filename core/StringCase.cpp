#include "core/StringCase.h"
#include <cwctype>
#include <locale>

void LowerCaseInPlace(std::wstring& text) {
    for (wchar_t& ch : text) ch = static_cast<wchar_t>(std::towlower(ch));
}

void LowerCaseClassic(std::wstring& text) {
    const std::locale& classic = std::locale::classic();
    for (wchar_t& ch : text) ch = std::tolower(ch, classic);
}

bool EqualsNoCase(const std::wstring& left, const std::wstring& right) {
    if (left.size() != right.size()) return false;
    for (std::wstring::size_type i = 0; i < left.size(); ++i) {
        if (std::towlower(left[i]) != std::towlower(right[i])) return false;
    }
    return true;
}
