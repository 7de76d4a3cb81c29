#pragma once
#include <windows.h>

// Hands what (a program, a document or an address) to the system's handler for it, with the
// "open" verb and the given parameters (may be null), shown as showCommand (SW_* values). With
// wait, returns once a started process has ended, or after 30 seconds at most. True when the shell
// accepted it.
bool ExecuteProgram(const wchar_t* what, int showCommand, bool wait, const wchar_t* parameters) noexcept;
