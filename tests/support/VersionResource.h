#pragma once
#include <windows.h>
#include <string>

namespace wbstest {

// Gives a program file a version resource whose fixed part carries the file version
// major.minor.build.revision (replacing any it had). The file must not be running.
bool StampFileVersion(const std::wstring& path, WORD major, WORD minor, WORD build, WORD revision);

}  // namespace wbstest
