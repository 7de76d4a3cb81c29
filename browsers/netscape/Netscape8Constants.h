#pragma once
#include "CStdStr.h"

// Netscape 8's names, built when the library loads.
class Netscape8Constants {
public:
    static const CStdStr ProgramName;  // "netscape": part of the program's name, and its "App Paths" name
    static const CStdStr MappingName;  // "NS6": the mapping file's name
};
