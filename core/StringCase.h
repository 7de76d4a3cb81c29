#pragma once
#include <string>

// The three ways this library folds case, each where the system's own code does.
// Lower-cases every character with the C runtime's wide-character classification.
void LowerCaseInPlace(std::wstring& text);
// Lower-cases with the classic ("C") locale: only the ASCII letters change.
void LowerCaseClassic(std::wstring& text);
// Compares two strings without regard to case, each character lower-cased through the default
// locale's wide-character classification; true when equal.
bool EqualsNoCase(const std::wstring& left, const std::wstring& right);
