#pragma once
#include "CStdStr.h"

// The user's application-data folder, without a trailing backslash: the shell's application-data
// folder, or when the shell has none, the documents folder followed by "\Application Data".
// False, with path empty, when neither can be had.
bool GetAppDataFolder(CStdStr& path);

// The first profile folder, in the order the file system lists them, that holds fileName.
// profilesRoot is relative to the application-data folder and begins and ends with a backslash;
// fileName begins with a backslash and may hold wildcards. On success foundPath is the profile
// folder's path followed by fileName.
bool FindProfileFile(const CStdStr& profilesRoot, const CStdStr& fileName, CStdStr& foundPath);
