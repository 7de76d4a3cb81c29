#include "support/MappingFile.h"
#include <windows.h>
#include <filesystem>
#include <fstream>

namespace wbstest {

MappingFile::MappingFile(std::wstring path, const std::string& text) : path_(std::move(path)) {
    Remove();
    std::ofstream file(std::filesystem::path(path_), std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    written_ = !file.fail();
}

MappingFile::~MappingFile() { Remove(); }

bool MappingFile::Remove() const {
    return ::DeleteFileW(path_.c_str()) != FALSE || ::GetLastError() == ERROR_FILE_NOT_FOUND;
}

}  // namespace wbstest
