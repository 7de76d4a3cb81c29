#pragma once
#include "CStdStr.h"

// Netscape 7's names, built when the library loads.
class Netscape7Constants {
public:
    static const CStdStr ProgramName;  // "Netscp": part of the program's name, and its "App Paths" name
    static const CStdStr MappingName;  // "NS6": the mapping file's name
};
