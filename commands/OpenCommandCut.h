#pragma once
#include <string>

// Cuts the registered HTML open command before its "\"%1\"" placeholder so that the URL can be
// handed over as the parameter. Text only; no Windows calls.
std::wstring CutOpenCommand(const std::wstring& command);
