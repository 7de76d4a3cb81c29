#pragma once
// Where wbs writes: standard output for results, standard error for the one line that says what
// went wrong; JSON text for --json.
#include <string>

namespace wbs {

// Writes to a console as wide text, to a file or pipe as UTF-8 with "\r\n" line ends. Nothing is
// buffered, so results and errors reach a shared pipe in the order they were written.
void Print(const std::wstring& text);
// "wbs: " message, as one line on standard error.
void PrintError(const std::wstring& message);

// The text as a JSON string, quotes included.
std::wstring JsonString(const std::wstring& text);
// The text as a JSON string, or null when it is empty.
std::wstring JsonStringOrNull(const std::wstring& text);

}  // namespace wbs
