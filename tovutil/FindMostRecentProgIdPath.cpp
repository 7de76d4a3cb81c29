#include "tovutil/FindMostRecentProgIdPath.h"
#include "tovutil/CRegistry.h"

namespace {
// A CurVer chain longer than this is taken for a loop.
constexpr int kMostVersionHops = 8;

bool ReadDefault(const std::wstring& subKey, CStdStr& value) {
    return CRegistry::ReadString(HKEY_CLASSES_ROOT, subKey.c_str(), nullptr, value) == ERROR_SUCCESS && !value.empty();
}
}  // namespace

bool FindMostRecentProgIdPath(const CStdStr& progId, CStdStr& path) {
    if (progId.empty()) return false;
    CStdStr current = progId;
    CStdStr clsid;
    (void)ReadDefault(current + L"\\CLSID", clsid);
    for (int hop = 0; hop < kMostVersionHops; ++hop) {
        CStdStr newer;
        if (!ReadDefault(current + L"\\CurVer", newer) || newer == current) break;
        current = newer;
        CStdStr newerClsid;
        // A version without a class of its own keeps the class found so far.
        if (ReadDefault(current + L"\\CLSID", newerClsid)) clsid = newerClsid;
    }
    if (clsid.empty()) return false;
    CStdStr server;
    if (!ReadDefault(L"CLSID\\" + clsid + L"\\LocalServer32", server)) return false;
    path = server;
    return true;
}
