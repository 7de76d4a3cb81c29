#include "Arguments.h"
#include <cwchar>

namespace wbs {
namespace {

bool ReadWindow(const std::wstring& text, HWND& window) {
    wchar_t* end = nullptr;
    const unsigned long long value = std::wcstoull(text.c_str(), &end, 0);
    if (end == text.c_str() || *end != L'\0' || value == 0) return false;
    window = reinterpret_cast<HWND>(static_cast<UINT_PTR>(value));
    return true;
}

}  // namespace

bool ReadArguments(int argc, wchar_t** argv, Arguments& out, std::wstring& error) {
    bool operandsOnly = false;
    for (int i = 1; i < argc; ++i) {
        std::wstring arg = argv[i];
        if (operandsOnly || arg.size() < 2 || arg[0] != L'-') {
            if (out.command.empty()) out.command = arg;
            else out.operands.push_back(arg);
            continue;
        }
        if (arg == L"--") {
            operandsOnly = true;
            continue;
        }
        std::wstring value;
        bool hasValue = false;
        const size_t equals = arg.find(L'=');
        if (arg.compare(0, 2, L"--") == 0 && equals != std::wstring::npos) {
            value = arg.substr(equals + 1);
            arg.erase(equals);
            hasValue = true;
        }
        const bool takesValue = arg == L"--window" || arg == L"--browser";
        if (takesValue && !hasValue) {
            if (i + 1 >= argc) {
                error = arg + (arg == L"--window" ? L" needs a window handle" : L" needs a browser");
                return false;
            }
            value = argv[++i];
        } else if (!takesValue && hasValue) {
            error = arg + L" takes no value";
            return false;
        }
        if (arg == L"--help" || arg == L"-h") {
            out.help = true;
        } else if (arg == L"--version") {
            out.version = true;
        } else if (arg == L"--json") {
            out.json = true;
        } else if (arg == L"--tree") {
            out.tree = true;
        } else if (arg == L"--browser") {
            if (value.empty()) {
                error = L"--browser needs a browser";
                return false;
            }
            out.browser = value;
        } else if (arg == L"--window") {
            if (!ReadWindow(value, out.window)) {
                error = L"--window takes a window handle such as 0x1a2b";
                return false;
            }
            if (!::IsWindow(out.window)) {
                error = L"--window names no window";
                return false;
            }
        } else {
            error = L"unknown option " + arg;
            return false;
        }
    }
    return true;
}

}  // namespace wbs
