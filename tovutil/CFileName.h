#pragma once

class CFileName {
public:
    // True when path names an existing file (not a folder).
    static bool FileExists(const wchar_t* path) noexcept;
};
