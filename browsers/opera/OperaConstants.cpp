#include "browsers/opera/OperaConstants.h"

const CStdStr OperaConstants::BrowserName(L"Opera");
const CStdStr OperaConstants::ClosingBracket(L"]");
const CStdStr OperaConstants::ProgramName(L"opera.exe");
const CStdStr OperaConstants::MappingName(L"opera");
