#include "tovutil/CFileName.h"
#include <windows.h>

bool CFileName::FileExists(const wchar_t* path) noexcept {
    if (path == nullptr || *path == L'\0') return false;
    const DWORD attributes = ::GetFileAttributesW(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}
