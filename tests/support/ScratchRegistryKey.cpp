#include "support/ScratchRegistryKey.h"

namespace wbstest {

ScratchRegistryKey::ScratchRegistryKey(const std::wstring& name)
    : subKey_(L"Software\\WebBrowserSupportTests\\" + name) {
    ::RegDeleteTreeW(HKEY_CURRENT_USER, subKey_.c_str());
    ::RegCreateKeyExW(HKEY_CURRENT_USER, subKey_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key_.Receive(),
                      nullptr);
}

ScratchRegistryKey::~ScratchRegistryKey() {
    key_.reset();
    ::RegDeleteTreeW(HKEY_CURRENT_USER, subKey_.c_str());
}

}  // namespace wbstest
