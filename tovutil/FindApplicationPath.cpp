#include "tovutil/FindApplicationPath.h"
#include "tovutil/CRegistry.h"

namespace {
const wchar_t kAppPathsKey[] = L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\";
}  // namespace

bool FindApplicationPath(const CStdStr& applicationName, const CStdStr& extension, CStdStr& path) {
    path.clear();
    const CStdStr subKey = kAppPathsKey + applicationName + L"." + extension;
    for (HKEY root : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
        CStdStr found;
        if (CRegistry::ReadString(root, subKey.c_str(), nullptr, found) == ERROR_SUCCESS && !found.empty()) {
            path = found;
            return true;
        }
    }
    return false;
}
