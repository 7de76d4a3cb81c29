#include "browsers/netscape/Netscape8Constants.h"

const CStdStr Netscape8Constants::ProgramName(L"netscape");
const CStdStr Netscape8Constants::MappingName(L"NS6");
