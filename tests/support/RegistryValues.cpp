#include "support/RegistryValues.h"
#include "core/ScopedRegKey.h"

namespace wbstest {

bool SetDefaultValue(HKEY root, const std::wstring& subKey, const std::wstring& value) {
    ScopedRegKey key;
    if (::RegCreateKeyExW(root, subKey.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.Receive(), nullptr) !=
        ERROR_SUCCESS)
        return false;
    return ::RegSetValueExW(key.get(), nullptr, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                            static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

std::wstring ReadDefaultValue(HKEY root, const std::wstring& subKey) {
    DWORD size = 0;
    if (::RegGetValueW(root, subKey.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS)
        return L"<absent>";
    std::wstring value(size / sizeof(wchar_t) + 1, L'\0');
    size = static_cast<DWORD>(value.size() * sizeof(wchar_t));
    if (::RegGetValueW(root, subKey.c_str(), nullptr, RRF_RT_REG_SZ, nullptr, value.data(), &size) != ERROR_SUCCESS)
        return L"<absent>";
    value.resize(::lstrlenW(value.c_str()));
    return value;
}

}  // namespace wbstest
