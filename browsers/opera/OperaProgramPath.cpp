#include "browsers/opera/OperaProgramPath.h"
#include <windows.h>
#include "tovutil/CRegistry.h"

namespace {
const wchar_t kAppPathsKey[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Opera.exe";
const wchar_t kVendorKey[] = L"SOFTWARE\\Opera Software";
const wchar_t kPluginPathValue[] = L"Plugin Path";
const wchar_t kPluginFolder[] = L"Program\\Plugins";
}  // namespace

bool FindOperaProgramPath(const wchar_t* programFile, CStdStr& programPath) {
    if (CRegistry::ReadString(HKEY_LOCAL_MACHINE, kAppPathsKey, nullptr, programPath) == ERROR_SUCCESS) return true;
    CStdStr pluginPath;
    if (CRegistry::ReadString(HKEY_CURRENT_USER, kVendorKey, kPluginPathValue, pluginPath) != ERROR_SUCCESS)
        return false;
    // The search is case-sensitive, and a plug-in path without the piece leaves the bare file name.
    const CStdStr::size_type at = pluginPath.find(kPluginFolder);
    programPath = (at == CStdStr::npos ? CStdStr() : CStdStr(pluginPath.substr(0, at))) + programFile;
    return true;
}

CStdStr ProgramFolder(const CStdStr& programPath) {
    // A registration may quote its path, as the start of the program allows; the folder has no quotes.
    std::wstring path;
    for (const wchar_t ch : programPath)
        if (ch != L'"') path += ch;
    const std::wstring::size_type lastSlash = path.rfind(L'\\');
    return lastSlash == std::wstring::npos ? CStdStr() : CStdStr(path.substr(0, lastSlash));
}
