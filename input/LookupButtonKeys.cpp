#include "input/LookupButtonKeys.h"
#include <windows.h>
#include "core/StringCase.h"
#include "input/ButtonNameTable.h"

namespace {

const wchar_t kSectionPrefix[] = L"Button Mapping - ";
const wchar_t kDefaultSection[] = L"Button Mapping - Default";
constexpr DWORD kValueChars = 1024;

void ReadMapping(const CStdStr& file, const std::wstring& section, const CStdStr& key, CStdStr& keys) {
    wchar_t value[kValueChars] = {};
    const DWORD length =
        ::GetPrivateProfileStringW(section.c_str(), key.c_str(), L"", value, kValueChars, file.c_str());
    keys.assign(value, length);
}

}  // namespace

bool LookupButtonKeys(const CStdStr& file, const CStdStr& /*extraText*/, const CStdStr& className,
                      unsigned short button, CStdStr& keys) {
    const std::vector<CStdStr>& names = ButtonNameTable::Names();
    // The caller's string is left as it was, so a sender repeats its previous keys for such a code.
    if (button >= names.size()) return false;
    const CStdStr& key = names[button];
    const std::wstring section = kSectionPrefix + className;
    ReadMapping(file, section, key, keys);
    if (keys.empty() && !EqualsNoCase(section, kDefaultSection)) ReadMapping(file, kDefaultSection, key, keys);
    return !keys.empty();
}
