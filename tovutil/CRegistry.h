#pragma once
#include <windows.h>
#include "CStdStr.h"
#include "core/ScopedRegKey.h"

// One open registry key. Status results are Win32 error codes: ERROR_SUCCESS (0) on success.
class CRegistry {
public:
    CRegistry() = default;
    [[nodiscard]] LONG Open(HKEY root, const wchar_t* subKey, REGSAM access = KEY_READ) noexcept;
    [[nodiscard]] LONG Create(HKEY root, const wchar_t* subKey, REGSAM access = KEY_READ | KEY_WRITE) noexcept;
    void Close() noexcept { key_.reset(); }
    bool IsOpen() const noexcept { return key_.valid(); }
    HKEY Key() const noexcept { return key_.get(); }

    // Reads a REG_SZ or REG_EXPAND_SZ value (not expanded) of any length; an empty or null name
    // is the key's default value. On failure value is left as it was.
    [[nodiscard]] LONG ReadStringValue(const wchar_t* valueName, CStdStr& value) const;
    [[nodiscard]] LONG WriteStringValue(const wchar_t* valueName, const wchar_t* value) noexcept;

    // Opens root\subKey for reading just long enough to read one string value from it.
    [[nodiscard]] static LONG ReadString(HKEY root, const wchar_t* subKey, const wchar_t* valueName, CStdStr& value);

private:
    ScopedRegKey key_;
};
