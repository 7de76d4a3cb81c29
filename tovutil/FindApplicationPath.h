#pragma once
#include "CStdStr.h"

// The full path of an installed program as registered under "App Paths" for
// "<applicationName>.<extension>": the machine's registration first, then the user's. The path
// is returned as registered (quotes and variables kept). False, with path empty, when neither
// registers a non-empty path.
bool FindApplicationPath(const CStdStr& applicationName, const CStdStr& extension, CStdStr& path);
