#pragma once
#include <windows.h>
#include <vector>
#include "tovutil/CVerNum.h"

// The version resource of one program file.
class CVerInfo {
public:
    CVerInfo() = default;

    // Reads the version resource of the file at path; false (and nothing held) when the file has
    // none or cannot be read.
    bool Init(const wchar_t* path);
    // The file version of the fixed part of the resource; false, with version left as it was,
    // before a successful Init or when the resource has no fixed part.
    bool GetFileVersionNum(CVerNum& version) const;

private:
    std::vector<BYTE> block_;
};
