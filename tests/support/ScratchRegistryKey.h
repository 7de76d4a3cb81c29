#pragma once
#include <windows.h>
#include <string>
#include "core/ScopedRegKey.h"

namespace wbstest {

// A private key for one test, HKEY_CURRENT_USER\Software\WebBrowserSupportTests\<name>, deleted
// with everything under it before it is made and again when the object goes.
class ScratchRegistryKey {
public:
    explicit ScratchRegistryKey(const std::wstring& name);
    ScratchRegistryKey(const ScratchRegistryKey&) = delete;
    ScratchRegistryKey& operator=(const ScratchRegistryKey&) = delete;
    ~ScratchRegistryKey();

    HKEY Key() const { return key_.get(); }
    // The path under HKEY_CURRENT_USER.
    const std::wstring& SubKey() const { return subKey_; }

private:
    std::wstring subKey_;
    ScopedRegKey key_;
};

}  // namespace wbstest
