#include "support/RegistryGuard.h"
#include "core/ScopedRegKey.h"

namespace wbstest {

namespace {

bool KeyExists(HKEY root, const std::wstring& subKey) {
    ScopedRegKey key;
    return ::RegOpenKeyExW(root, subKey.c_str(), 0, KEY_READ, key.Receive()) == ERROR_SUCCESS;
}

}  // namespace

RegistryGuard::RegistryGuard(HKEY root, std::wstring subKey, std::wstring valueName)
    : root_(root), subKey_(std::move(subKey)), valueName_(std::move(valueName)) {
    size_t end = 0;
    do {
        end = subKey_.find(L'\\', end + 1);
        const std::wstring prefix = subKey_.substr(0, end);
        if (!KeyExists(root_, prefix)) {
            firstAbsentKey_ = prefix;
            return;
        }
    } while (end != std::wstring::npos);

    ScopedRegKey key;
    if (::RegOpenKeyExW(root_, subKey_.c_str(), 0, KEY_QUERY_VALUE, key.Receive()) != ERROR_SUCCESS) return;
    DWORD size = 0;
    if (::RegQueryValueExW(key.get(), valueName_.c_str(), nullptr, &type_, nullptr, &size) != ERROR_SUCCESS) return;
    data_.resize(size);
    existed_ = ::RegQueryValueExW(key.get(), valueName_.c_str(), nullptr, &type_, data_.data(), &size) ==
               ERROR_SUCCESS;
    data_.resize(size);
}

RegistryGuard::~RegistryGuard() {
    if (!firstAbsentKey_.empty()) {
        ::RegDeleteTreeW(root_, firstAbsentKey_.c_str());
        return;
    }
    ScopedRegKey key;
    if (::RegCreateKeyExW(root_, subKey_.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, key.Receive(), nullptr) !=
        ERROR_SUCCESS)
        return;
    if (existed_)
        ::RegSetValueExW(key.get(), valueName_.c_str(), 0, type_, data_.empty() ? nullptr : data_.data(),
                         static_cast<DWORD>(data_.size()));
    else
        ::RegDeleteValueW(key.get(), valueName_.c_str());
}

}  // namespace wbstest
