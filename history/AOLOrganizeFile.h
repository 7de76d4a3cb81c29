#pragma once
#include "CStdStr.h"

// The first file (directories are skipped) that pattern lists below the AOL program folder, the
// "AppPath" value of HKLM "Software\America Online\AOL\CurrentVersion"; pattern starts with a
// backslash ("\Organize\*.AUT"). Only a REG_SZ value is a program folder: one stored as
// REG_EXPAND_SZ or any other type finds nothing. withoutExtension skips every name with a dot.
// path is the pattern up to its last backslash followed by the file's name; false (path as it
// was) when there is no folder or no such file.
bool FindAOLOrganizeFile(const wchar_t* pattern, bool withoutExtension, CStdStr& path);
