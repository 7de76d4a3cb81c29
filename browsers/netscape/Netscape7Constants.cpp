#include "browsers/netscape/Netscape7Constants.h"

const CStdStr Netscape7Constants::ProgramName(L"Netscp");
const CStdStr Netscape7Constants::MappingName(L"NS6");
