#pragma once
#include "CStdStr.h"

// Netscape Navigator's names, built when the library loads.
class NetscapeConstants {
public:
    static const CStdStr ProgramName;  // "navigator": part of the program's name, and its "App Paths" name
    static const CStdStr MappingName;  // "NS6": the mapping file's name
};
