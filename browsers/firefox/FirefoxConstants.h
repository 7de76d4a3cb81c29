#pragma once
#include "CStdStr.h"

// Firefox's names, built when the library loads.
class FirefoxConstants {
public:
    static const CStdStr ProgramName;  // "firefox.exe"
    static const CStdStr BrowserName;  // "Firefox": the DDE service and the mapping file's name
};
