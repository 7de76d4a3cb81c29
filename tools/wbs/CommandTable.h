#pragma once
// The commands of wbs: what each accepts, and the usage text that its --help prints.

namespace wbs {

enum ExitCode { Delivered = 0, NotDelivered = 1, BadUsage = 2 };

enum class WindowUse {
    None,       // acts on the browser in front or the default browser, never a given window
    Any,        // a given window stands in for the one in front
    FrontOnly,  // only with --browser front
};

struct CommandForm {
    const wchar_t* name;
    WindowUse window;
    bool lists;      // takes --browser (needed) and, for favorites, --tree
    bool takesUrl;   // exactly one operand, the URL
    bool printsJson; // takes --json
    const wchar_t* usage;
};

// The command of that name; null for none.
const CommandForm* FindCommand(const wchar_t* name);

// The list of commands, options and exit codes that "wbs --help" prints.
extern const wchar_t kUsage[];

}  // namespace wbs
