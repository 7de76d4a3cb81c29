#pragma once
#include "CStdStr.h"

// Chrome's names, built when the library loads.
class ChromeConstants {
public:
    static const CStdStr ProgramName;      // "chrome.exe"
    static const CStdStr AddressBoxClass;  // "Chrome_AutocompleteEditView", the address box's window class
};
