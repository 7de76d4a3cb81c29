#pragma once
#include <windows.h>
#include <functional>
#include <string>
#include "core/ScopedHandle.h"

// Starts a browser program as the starters do: zero-filled records from the process heap, shown
// normally with start-up feedback, in a process group of its own; waits until it is idle for input
// and asks for it to come forward (handing over its process handle when handToForeground). The
// process handle, or none when the program could not be started.
ScopedHandle StartIdleProcess(wchar_t* commandLine, bool handToForeground);

// Sleeps 100 ms, then twice as long each time, six times at most, for as long as keepWaiting()
// holds (asked before each sleep): how long a started browser is given to come forward.
void WaitDoubling(const std::function<bool()>& keepWaiting);

// Starts a browser program from a command line (environment variables expanded), waits until it
// is idle and has had a chance to take the foreground, and stores the foreground window then
// in *window. False when the program could not be started.
bool StartProgram(const wchar_t* commandLine, HWND* window);

// The command line a browser is started with: the program path with its own quotes removed, in
// quotes, then the arguments in quotes when there are any. The arguments keep any quotes of theirs.
std::wstring QuotedCommandLine(const std::wstring& programPath, const std::wstring& arguments);
