#pragma once
#include <windows.h>

// Restores a browser window that is minimised (by its placement or because it is iconic) and
// makes it the foreground window; true when it became the foreground window.
bool RaiseWindow(HWND window);
