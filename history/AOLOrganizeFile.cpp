#include "history/AOLOrganizeFile.h"
#include <windows.h>
#include <cwchar>
#include "browsers/aol/AOLConstants.h"
#include "core/ScopedFindHandle.h"
#include "tovutil/CRegistry.h"

namespace {
bool ReadAppPath(CStdStr& folder) {
    CRegistry key;
    if (key.Open(HKEY_LOCAL_MACHINE, AOLConstants::RegistryKey.c_str()) != ERROR_SUCCESS) return false;
    DWORD type = REG_NONE;
    DWORD bytes = 0;
    if (::RegQueryValueExW(key.Key(), AOLConstants::AppPathValue.c_str(), nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS) return false;
    // An expandable path is not expanded and not used either: the installer writes a plain string.
    if (type != REG_SZ) return false;
    return key.ReadStringValue(AOLConstants::AppPathValue.c_str(), folder) == ERROR_SUCCESS;
}
}  // namespace

bool FindAOLOrganizeFile(const wchar_t* pattern, bool withoutExtension, CStdStr& path) {
    CStdStr folder;
    if (!ReadAppPath(folder)) return false;
    const CStdStr search = folder + pattern;

    WIN32_FIND_DATAW entry = {};
    ScopedFindHandle found(::FindFirstFileW(search.c_str(), &entry));
    if (!found) return false;
    do {
        if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) continue;
        if (withoutExtension && std::wcschr(entry.cFileName, L'.') != nullptr) continue;
        path = search.substr(0, search.find_last_of(L'\\') + 1) + entry.cFileName;
        return true;
    } while (::FindNextFileW(found.get(), &entry));
    return false;
}
