#include "browsers/chrome/ChromeConstants.h"

const CStdStr ChromeConstants::ProgramName(L"chrome.exe");
const CStdStr ChromeConstants::AddressBoxClass(L"Chrome_AutocompleteEditView");
