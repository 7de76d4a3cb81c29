#include "tovutil/CVerInfo.h"

bool CVerInfo::Init(const wchar_t* path) {
    block_.clear();
    DWORD ignored = 0;
    const DWORD size = ::GetFileVersionInfoSizeW(path, &ignored);
    if (size == 0) return false;
    std::vector<BYTE> block(size);
    if (!::GetFileVersionInfoW(path, 0, size, block.data())) return false;
    block_.swap(block);
    return true;
}

bool CVerInfo::GetFileVersionNum(CVerNum& version) const {
    if (block_.empty()) return false;
    void* value = nullptr;
    UINT length = 0;
    // VerQueryValueW takes a non-const block, though it only reads it.
    if (!::VerQueryValueW(const_cast<BYTE*>(block_.data()), L"\\", &value, &length) || value == nullptr ||
        length < sizeof(VS_FIXEDFILEINFO))
        return false;
    const auto* fixed = static_cast<const VS_FIXEDFILEINFO*>(value);
    if (fixed->dwSignature != VS_FFI_SIGNATURE) return false;
    version = CVerNum(fixed->dwFileVersionMS, fixed->dwFileVersionLS);
    return true;
}
