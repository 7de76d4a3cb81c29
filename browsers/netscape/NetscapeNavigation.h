#pragma once
#include "CStdStr.h"

// How every Netscape browser opens an address: pasted into the location bar of the Netscape in
// front, or given to a newly started program (found under "App Paths" as programName + ".exe")
// after "-url ". restoreWindow: the first Mozilla window is told to restore itself after a start.
// False when the clipboard cannot take the address or the program is not registered; a start that
// fails still counts as done.
bool NetscapeGoToWebAddress(const CStdStr& programName, const CStdStr& url, bool restoreWindow);

// The Netscape markup class's local server, which is written empty rather than read: true, with
// programPath empty, when the write succeeds.
bool NetscapeProgramPath(CStdStr& programPath);
