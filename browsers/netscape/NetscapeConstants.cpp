#include "browsers/netscape/NetscapeConstants.h"

const CStdStr NetscapeConstants::ProgramName(L"navigator");
const CStdStr NetscapeConstants::MappingName(L"NS6");
