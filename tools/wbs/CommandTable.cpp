#include "CommandTable.h"
#include <cwchar>

namespace wbs {

const wchar_t kUsage[] =
    L"usage: wbs [options] <command> [<url>]\n"
    L"       wbs <command> --help\n"
    L"       wbs --version\n"
    L"\n"
    L"Drives the web browser in front, or the default browser, as a button bound to a browser\n"
    L"command does, and reads browsers' favorites and typed addresses.\n"
    L"\n"
    L"commands:\n"
    L"  back, forward     go back or forward in the browser in front (or the given window)\n"
    L"  refresh           refresh the browser in front (or the given window)\n"
    L"  home              the browser's home page (starts the default browser if none is in front)\n"
    L"  search            the browser's search (the default browser's if none is in front)\n"
    L"  favorites         the browser's favorites (the default browser's if none is in front)\n"
    L"  go <url>          go to a web address in the browser in front, or the default browser\n"
    L"  open <url>        open a URL through the shell, or the registered HTML command\n"
    L"  which             name the driver for the window in front and for the default browser\n"
    L"  page              the current page of the browser in front: its URL, then its title\n"
    L"  list-favorites    a browser's favorites, one a line\n"
    L"  list-history      a browser's typed addresses, one a line\n"
    L"  help [<command>]  this text, or the command's usage\n"
    L"\n"
    L"options (before or after the command):\n"
    L"  --window <hwnd>   the window to act on instead of the one in front, as 0x1a2b or decimal:\n"
    L"                    back, forward, refresh, home, which, page, and list-* with --browser front\n"
    L"  --json            print the result as JSON (every command that prints one)\n"
    L"  -h, --help        this text; with a command, that command's usage\n"
    L"  --version         print the version of wbs\n"
    L"\n"
    L"exit codes:\n"
    L"  0  delivered, or found\n"
    L"  1  not delivered, or nothing found; one line on stderr says why\n"
    L"  2  bad usage; one line on stderr, ending \"(see wbs --help)\"\n";

namespace {

#define WBS_DELIVERY_OUTPUT                                                                          \
    L"\n"                                                                                            \
    L"Prints the driver that serves the command, then \"delivered\"; when the command was not\n"     \
    L"delivered, one line on stderr says so and the exit code is 1.\n"

const CommandForm kCommands[] = {
    {L"back", WindowUse::Any, false, false, true,
     L"usage: wbs back [--window <hwnd>] [--json]\n"
     L"\n"
     L"Goes back in the browser in front, or in the given window, the way its driver knows: the back\n"
     L"application command, the host's \"AppOverrides\" macro, keys, or the browser's own toolbar.\n"
     L"wbs's macro prints each parameter it is given as \"AppOverrides NAME=VALUE\" and leaves the\n"
     L"command to the driver. With no browser recognised it sends the back application command to\n"
     L"the given window, or clicks the mouse's back button when no window is given.\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object instead:\n"
     L"  {\"command\": \"back\", \"driver\": \"cIEWebBrowser\", \"source\": \"front\", \"appOverrides\": null,\n"
     L"   \"delivered\": true}\n"
     L"\"source\" is \"front\" or \"window\"; \"driver\" and \"source\" are null when no browser is\n"
     L"recognised; \"appOverrides\" holds the parameters the macro was given, if it was asked.\n"},
    {L"forward", WindowUse::Any, false, false, true,
     L"usage: wbs forward [--window <hwnd>] [--json]\n"
     L"\n"
     L"Goes forward in the browser in front, or in the given window, as \"wbs back\" goes back: with\n"
     L"no browser recognised it sends the forward application command to the given window, or clicks\n"
     L"the mouse's forward button when no window is given.\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object as \"wbs back --help\" shows, with \"command\": \"forward\".\n"},
    {L"refresh", WindowUse::Any, false, false, true,
     L"usage: wbs refresh [--window <hwnd>] [--json]\n"
     L"\n"
     L"Refreshes the browser in front, or the given window. With no browser recognised nothing is\n"
     L"sent.\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object instead:\n"
     L"  {\"command\": \"refresh\", \"driver\": \"cIEWebBrowser\", \"source\": \"window\", \"delivered\": true}\n"},
    {L"home", WindowUse::Any, false, false, true,
     L"usage: wbs home [--window <hwnd>] [--json]\n"
     L"\n"
     L"Shows the home page of the browser in front, or of the given window. With no browser\n"
     L"recognised there, it starts the default browser on its own start page.\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object instead:\n"
     L"  {\"command\": \"home\", \"driver\": \"cFirefoxWebBrowser\", \"source\": \"default\", \"delivered\": true}\n"
     L"\"source\" is \"front\", \"window\" or \"default\".\n"},
    {L"search", WindowUse::None, false, false, true,
     L"usage: wbs search [--json]\n"
     L"\n"
     L"Shows the search of the browser in front, or of the default browser when none is in front.\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object instead:\n"
     L"  {\"command\": \"search\", \"driver\": \"cOperaWebBrowser\", \"source\": \"front\", \"delivered\": true}\n"
     L"\"source\" is \"front\" or \"default\".\n"},
    {L"favorites", WindowUse::None, false, false, true,
     L"usage: wbs favorites [--json]\n"
     L"\n"
     L"Shows the favorites of the browser in front, or of the default browser when none is in front.\n"
     L"To print a browser's favorites, see \"wbs list-favorites --help\".\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object as \"wbs search --help\" shows, with \"command\": \"favorites\".\n"},
    {L"go", WindowUse::None, false, true, true,
     L"usage: wbs go [--json] <url>\n"
     L"\n"
     L"Goes to the web address in the browser in front, or in the default browser when none is in\n"
     L"front (starting it if need be).\n"
     WBS_DELIVERY_OUTPUT
     L"--json prints one object instead:\n"
     L"  {\"command\": \"go\", \"url\": \"http://example.com/\", \"driver\": \"cIEWebBrowser\",\n"
     L"   \"source\": \"default\", \"delivered\": true}\n"},
    {L"open", WindowUse::None, false, true, true,
     L"usage: wbs open [--json] <url>\n"
     L"\n"
     L"Opens the URL through the shell; failing that, runs the command registered for HTML files\n"
     L"with the URL as its parameter. No browser driver takes part.\n"
     L"\n"
     L"Prints \"delivered\"; when neither opened the URL, one line on stderr says so and the exit\n"
     L"code is 1. --json prints one object instead:\n"
     L"  {\"command\": \"open\", \"url\": \"http://example.com/\", \"delivered\": true}\n"},
    {L"which", WindowUse::Any, false, false, true,
     L"usage: wbs which [--window <hwnd>] [--json]\n"
     L"\n"
     L"Names the window in front (or the given window) and, for each browser command, the driver\n"
     L"that would serve it there; then the default browser's command line and its driver. Exits 0.\n"
     L"\n"
     L"--json prints one object instead, with null for what is missing:\n"
     L"  {\"window\": {\"handle\": \"0x1a2b\", \"class\": \"IEFrame\", \"title\": \"...\"},\n"
     L"   \"drivers\": {\"BACK\": \"cIEWebBrowser\", ..., \"WEBADDRESS\": \"cIEWebBrowser\"},\n"
     L"   \"defaultBrowser\": {\"commandLine\": \"...\", \"driver\": \"cIEWebBrowser\"}}\n"},
    {L"page", WindowUse::Any, false, false, true,
     L"usage: wbs page [--window <hwnd>] [--json]\n"
     L"\n"
     L"Prints the page that the browser in front (or the given window) shows, as its driver reads\n"
     L"it: the URL on one line, the title on the next. Exits 1, with one line on stderr, when no\n"
     L"browser is recognised or its driver reads no page.\n"
     L"\n"
     L"--json prints one object instead:\n"
     L"  {\"url\": \"http://example.com/\", \"title\": \"Example\"}\n"},
    {L"list-favorites", WindowUse::FrontOnly, true, false, true,
     L"usage: wbs list-favorites --browser <browser> [--window <hwnd>] [--json | --tree]\n"
     L"\n"
     L"Prints a browser's favorites as its driver reads them from where the browser keeps them,\n"
     L"whether or not it runs: one a line, a favorite as its name, \"<\", its address and \">\", and a\n"
     L"folder's entries between \":Start<name>\" and \":End<name>\".\n"
     L"\n"
     L"  --browser <browser>  a family: ie, firefox, netscape, netscape8, netscape7, opera, aol;\n"
     L"                       or front: the browser in front (or in --window);\n"
     L"                       or default: the default browser\n"
     L"  --tree               the favorites indented under their folders, \"name  address\"\n"
     L"  --json               [{\"text\": \"Home<http://example.com/>\", \"extra\": \"\"}, ...]\n"
     L"\n"
     L"Exits 1, with one line on stderr, when no browser is recognised in front or as the default,\n"
     L"or when the driver finds no favorites.\n"},
    {L"list-history", WindowUse::FrontOnly, true, false, true,
     L"usage: wbs list-history --browser <browser> [--window <hwnd>] [--json]\n"
     L"\n"
     L"Prints the addresses typed into a browser, as its driver reads them from where the browser\n"
     L"keeps them, whether or not it runs: one a line, as the entry's text, then a tab and its extra\n"
     L"text when it has one.\n"
     L"\n"
     L"  --browser <browser>  a family: ie, firefox, netscape, netscape8, netscape7, opera, aol;\n"
     L"                       or front: the browser in front (or in --window);\n"
     L"                       or default: the default browser\n"
     L"  --json               [{\"text\": \"url1\", \"extra\": \"http://example.com/\"}, ...]\n"
     L"\n"
     L"Exits 1, with one line on stderr, when no browser is recognised in front or as the default,\n"
     L"or when the driver finds no typed addresses.\n"},
    {L"help", WindowUse::None, false, false, false,
     L"usage: wbs help [<command>]\n"
     L"\n"
     L"Prints the list of commands, options and exit codes, or the usage of one command.\n"},
};

#undef WBS_DELIVERY_OUTPUT

}  // namespace

const CommandForm* FindCommand(const wchar_t* name) {
    for (const CommandForm& form : kCommands)
        if (std::wcscmp(form.name, name) == 0) return &form;
    return nullptr;
}

}  // namespace wbs
