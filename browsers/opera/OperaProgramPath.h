#pragma once
#include "CStdStr.h"

// Where Opera's program is: the default value of its "App Paths" registration as written, else
// the part of the user's "Plugin Path" before "Program\Plugins" (all of it dropped when that is
// missing) followed by programFile. False when neither value can be read: a missing
// "Plugin Path" ends the search. On failure programPath is left as it was.
bool FindOperaProgramPath(const wchar_t* programFile, CStdStr& programPath);

// The program path without its quotes, up to, not including, its last backslash (empty without one).
CStdStr ProgramFolder(const CStdStr& programPath);
