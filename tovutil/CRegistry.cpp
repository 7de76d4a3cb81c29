#include "tovutil/CRegistry.h"
#include <vector>

LONG CRegistry::Open(HKEY root, const wchar_t* subKey, REGSAM access) noexcept {
    return ::RegOpenKeyExW(root, subKey, 0, access, key_.Receive());
}

LONG CRegistry::Create(HKEY root, const wchar_t* subKey, REGSAM access) noexcept {
    return ::RegCreateKeyExW(root, subKey, 0, nullptr, REG_OPTION_NON_VOLATILE, access, nullptr,
                             key_.Receive(), nullptr);
}

LONG CRegistry::ReadStringValue(const wchar_t* valueName, CStdStr& value) const {
    if (!key_) return ERROR_INVALID_HANDLE;
    // The value may change between the size query and the read; retry a few times if it grew.
    for (int attempt = 0; attempt < 4; ++attempt) {
        DWORD type = 0;
        DWORD bytes = 0;
        LONG status = ::RegQueryValueExW(key_.get(), valueName, nullptr, &type, nullptr, &bytes);
        if (status != ERROR_SUCCESS) return status;
        if (type != REG_SZ && type != REG_EXPAND_SZ) return ERROR_UNSUPPORTED_TYPE;
        // Room for a terminator the stored data may lack.
        std::vector<wchar_t> buffer(bytes / sizeof(wchar_t) + 2, L'\0');
        DWORD size = static_cast<DWORD>((buffer.size() - 1) * sizeof(wchar_t));
        status = ::RegQueryValueExW(key_.get(), valueName, nullptr, &type,
                                    reinterpret_cast<BYTE*>(buffer.data()), &size);
        if (status == ERROR_MORE_DATA) continue;
        if (status != ERROR_SUCCESS) return status;
        if (type != REG_SZ && type != REG_EXPAND_SZ) return ERROR_UNSUPPORTED_TYPE;
        const size_t chars = size / sizeof(wchar_t);
        size_t length = 0;
        while (length < chars && buffer[length] != L'\0') ++length;
        value.assign(buffer.data(), length);
        return ERROR_SUCCESS;
    }
    return ERROR_MORE_DATA;
}

LONG CRegistry::ReadString(HKEY root, const wchar_t* subKey, const wchar_t* valueName, CStdStr& value) {
    CRegistry key;
    const LONG status = key.Open(root, subKey);
    return status != ERROR_SUCCESS ? status : key.ReadStringValue(valueName, value);
}

LONG CRegistry::WriteStringValue(const wchar_t* valueName, const wchar_t* value) noexcept {
    if (!key_) return ERROR_INVALID_HANDLE;
    if (value == nullptr) value = L"";
    const DWORD bytes = static_cast<DWORD>((::lstrlenW(value) + 1) * sizeof(wchar_t));
    return ::RegSetValueExW(key_.get(), valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(value), bytes);
}
