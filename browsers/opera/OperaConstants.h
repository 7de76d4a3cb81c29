#pragma once
#include "CStdStr.h"

// Opera's names, built when the library loads.
class OperaConstants {
public:
    // "Opera" and "]": kept with the family's names; the driver reads neither.
    static const CStdStr BrowserName;
    static const CStdStr ClosingBracket;
    static const CStdStr ProgramName;     // "opera.exe": recognising Opera, and its file beside the plug-in folder
    static const CStdStr MappingName;     // "opera": the mapping file's name
};
