#pragma once
#include <windows.h>

// Brings the first visible, unowned top-level window of a process to the foreground, restoring
// it first when minimised. process may be null. False when the process shows no such window.
bool BringProcessToForeground(DWORD processId, HANDLE process) noexcept;
