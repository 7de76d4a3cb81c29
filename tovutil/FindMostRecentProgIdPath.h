#pragma once
#include "CStdStr.h"

// The local server program registered for a COM ProgID, taken from its most recent version:
// "CurVer" is followed to the newest ProgID, whose CLSID names the "LocalServer32" command
// (returned as registered, quotes included). False when any link is missing.
bool FindMostRecentProgIdPath(const CStdStr& progId, CStdStr& path);
