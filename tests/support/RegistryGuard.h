#pragma once
#include <windows.h>
#include <string>
#include <vector>

namespace wbstest {

// Keeps one registry value as it was: notes on construction whether it exists, its type and its
// data, and on destruction puts it back exactly, or deletes it when it did not exist. Keys on its
// path that were absent at construction are deleted again, with whatever the test put under them.
class RegistryGuard {
public:
    RegistryGuard(HKEY root, std::wstring subKey, std::wstring valueName);
    RegistryGuard(const RegistryGuard&) = delete;
    RegistryGuard& operator=(const RegistryGuard&) = delete;
    ~RegistryGuard();

private:
    HKEY root_;
    std::wstring subKey_;
    std::wstring valueName_;
    bool existed_ = false;
    DWORD type_ = REG_NONE;
    std::vector<BYTE> data_;
    std::wstring firstAbsentKey_;  // empty when the whole key existed
};

}  // namespace wbstest
