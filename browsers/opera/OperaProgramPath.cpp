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
    const CStdStr::size_type lastSlash = programPath.rfind(L'\\');
    return lastSlash == CStdStr::npos ? CStdStr() : CStdStr(programPath.substr(0, lastSlash));
}
