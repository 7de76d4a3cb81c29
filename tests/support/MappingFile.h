#pragma once
#include <string>

namespace wbstest {

// A button-mapping file (profile syntax, 8-bit text) that exists for one scope: whatever is at
// the path is removed before the file is written and again when the object goes.
class MappingFile {
public:
    MappingFile(std::wstring path, const std::string& text);
    MappingFile(const MappingFile&) = delete;
    MappingFile& operator=(const MappingFile&) = delete;
    ~MappingFile();

    const std::wstring& Path() const { return path_; }
    bool Written() const { return written_; }
    // Removes the file now; true when it is gone.
    bool Remove() const;

private:
    std::wstring path_;
    bool written_ = false;
};

}  // namespace wbstest
