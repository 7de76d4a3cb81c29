#pragma once
#include <windows.h>

// Starts a browser program from a command line (environment variables expanded), waits until it
// is idle and has had a chance to take the foreground, and stores the foreground window then
// in *window. False when the program could not be started.
bool StartProgram(const wchar_t* commandLine, HWND* window);
