#pragma once
#include <windows.h>
#include <string>

namespace wbstest {

// Writes value as the REG_SZ default value of root\subKey, making the key when absent; false
// when it cannot.
bool SetDefaultValue(HKEY root, const std::wstring& subKey, const std::wstring& value);
// The REG_SZ default value of root\subKey, or "<absent>" when there is none.
std::wstring ReadDefaultValue(HKEY root, const std::wstring& subKey);

}  // namespace wbstest
