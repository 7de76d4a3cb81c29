#pragma once
// The command line of wbs: a command, its operands and the options, which may stand before or
// after the command.
#include <windows.h>
#include <string>
#include <vector>

namespace wbs {

struct Arguments {
    std::wstring command;  // empty when none was given
    std::vector<std::wstring> operands;
    HWND window = nullptr;  // --window; null: the window in front
    std::wstring browser;   // --browser; empty when not given
    bool json = false;
    bool tree = false;
    bool help = false;
    bool version = false;
};

// Reads argv; false with the usage error in error. "--name=value" is read as "--name value", and
// after "--" every word is an operand.
bool ReadArguments(int argc, wchar_t** argv, Arguments& out, std::wstring& error);

}  // namespace wbs
