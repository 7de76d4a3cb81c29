#include "support/VersionResource.h"
#include <cstring>
#include <vector>

namespace wbstest {

namespace {
// The resource's header (length, value length, type, key "VS_VERSION_INFO") is padded to a
// 32-bit boundary before the fixed part; no string or variable blocks follow.
std::vector<BYTE> VersionBlock(WORD major, WORD minor, WORD build, WORD revision) {
    const wchar_t key[] = L"VS_VERSION_INFO";
    const size_t headerSize = 3 * sizeof(WORD) + sizeof key;
    const size_t fixedOffset = (headerSize + 3) & ~size_t{3};
    std::vector<BYTE> block(fixedOffset + sizeof(VS_FIXEDFILEINFO), 0);
    const WORD words[3] = {static_cast<WORD>(block.size()), static_cast<WORD>(sizeof(VS_FIXEDFILEINFO)), 0};
    std::memcpy(block.data(), words, sizeof words);
    std::memcpy(block.data() + sizeof words, key, sizeof key);

    VS_FIXEDFILEINFO fixed = {};
    fixed.dwSignature = VS_FFI_SIGNATURE;
    fixed.dwStrucVersion = VS_FFI_STRUCVERSION;
    fixed.dwFileVersionMS = MAKELONG(minor, major);
    fixed.dwFileVersionLS = MAKELONG(revision, build);
    fixed.dwProductVersionMS = fixed.dwFileVersionMS;
    fixed.dwProductVersionLS = fixed.dwFileVersionLS;
    fixed.dwFileFlagsMask = VS_FFI_FILEFLAGSMASK;
    fixed.dwFileOS = VOS_NT_WINDOWS32;
    fixed.dwFileType = VFT_APP;
    std::memcpy(block.data() + fixedOffset, &fixed, sizeof fixed);
    return block;
}
}  // namespace

bool StampFileVersion(const std::wstring& path, WORD major, WORD minor, WORD build, WORD revision) {
    std::vector<BYTE> block = VersionBlock(major, minor, build, revision);
    HANDLE update = ::BeginUpdateResourceW(path.c_str(), FALSE);
    if (update == nullptr) return false;
    if (!::UpdateResourceW(update, RT_VERSION, MAKEINTRESOURCEW(VS_VERSION_INFO),
                           MAKELANGID(LANG_NEUTRAL, SUBLANG_NEUTRAL), block.data(), static_cast<DWORD>(block.size()))) {
        ::EndUpdateResourceW(update, TRUE);
        return false;
    }
    return ::EndUpdateResourceW(update, FALSE) != FALSE;
}

}  // namespace wbstest
