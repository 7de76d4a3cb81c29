#pragma once
#include <windows.h>

// The directory entry of one file, read once: FindFirstFileW, then the search is closed at once.
class cFileInformation {
public:
    explicit cFileInformation(const wchar_t* path) noexcept;
    virtual ~cFileInformation() = default;
    cFileInformation(const cFileInformation&) = delete;
    cFileInformation& operator=(const cFileInformation&) = delete;

    bool Found() const noexcept { return found_; }
    const WIN32_FIND_DATAW& Data() const noexcept { return data_; }
    // The low 32 bits of the file's size; 0 when nothing was found.
    DWORD SizeLow() const noexcept { return found_ ? data_.nFileSizeLow : 0; }

private:
    WIN32_FIND_DATAW data_ = {};
    bool found_ = false;
};
