#pragma once
#include <windows.h>

// A four-part file version "major.minor.build.revision" as a version resource stores it: two
// 32-bit halves, each holding two 16-bit parts, the more significant part in the high word.
class CVerNum {
public:
    CVerNum() noexcept = default;
    CVerNum(DWORD mostSignificant, DWORD leastSignificant) noexcept
        : mostSignificant_(mostSignificant), leastSignificant_(leastSignificant) {}

    WORD GetMajor() const noexcept { return HIWORD(mostSignificant_); }
    WORD GetMinor() const noexcept { return LOWORD(mostSignificant_); }
    WORD GetBuild() const noexcept { return HIWORD(leastSignificant_); }
    WORD GetRevision() const noexcept { return LOWORD(leastSignificant_); }

private:
    DWORD mostSignificant_ = 0;
    DWORD leastSignificant_ = 0;
};
