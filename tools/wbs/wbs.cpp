// wbs: a command-line host over WebBrowserSupport.dll, the kind of program a user binds to a
// button in any hotkey tool. Exit code 0 when the command was delivered or what it asked for was
// found, 1 when not, 2 on bad usage.
#include <string>
#include "Arguments.h"
#include "CommandTable.h"
#include "Commands.h"
#include "Output.h"

namespace {

int Fail(const std::wstring& message) {
    wbs::PrintError(message + L" (see wbs --help)");
    return wbs::BadUsage;
}

// The usage error of arguments that the command does not take; empty when they all fit.
std::wstring Misfit(const wbs::CommandForm& form, const wbs::Arguments& args) {
    const std::wstring name = form.name;
    if (args.window && form.window == wbs::WindowUse::None) return name + L" does not take --window";
    if (!args.browser.empty() && !form.lists) return name + L" does not take --browser";
    if (args.tree && !(form.lists && name == L"list-favorites")) return name + L" does not take --tree";
    if (args.json && !form.printsJson) return name + L" does not take --json";
    if (form.takesUrl && args.operands.size() != 1) return name + L" takes exactly one URL";
    if (!form.takesUrl && !args.operands.empty()) return L"unexpected argument " + args.operands[0];
    if (form.lists) {
        if (args.browser.empty()) return name + L" needs --browser (a family, front or default)";
        if (args.json && args.tree) return L"--json and --tree do not go together";
        if (args.window && args.browser != L"front") return L"--window goes only with --browser front";
    }
    return std::wstring();
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    wbs::Arguments args;
    std::wstring error;
    if (!wbs::ReadArguments(argc, argv, args, error)) return Fail(error);

    // "wbs help back" and "wbs back --help" both ask for the usage of back; "wbs help" alone is
    // "wbs --help".
    std::wstring topic = args.command;
    if (topic == L"help") {
        if (args.operands.size() > 1) return Fail(L"unexpected argument " + args.operands[1]);
        if (!args.operands.empty()) topic = args.operands[0];
        else if (!args.help) topic.clear();
        args.help = true;
    }
    if (args.help) {
        if (topic.empty()) {
            wbs::Print(wbs::kUsage);
            return wbs::Delivered;
        }
        const wbs::CommandForm* form = wbs::FindCommand(topic.c_str());
        if (form == nullptr) return Fail(L"unknown command " + topic);
        wbs::Print(form->usage);
        return wbs::Delivered;
    }
    if (args.version) return wbs::Version(args);
    if (args.command.empty()) return Fail(L"no command given");

    const wbs::CommandForm* form = wbs::FindCommand(args.command.c_str());
    if (form == nullptr) return Fail(L"unknown command " + args.command);
    const std::wstring misfit = Misfit(*form, args);
    if (!misfit.empty()) return Fail(misfit);

    if (args.command == L"which") return wbs::Which(args);
    if (args.command == L"page") return wbs::Page(args);
    if (form->lists) return wbs::List(args);
    return wbs::Deliver(args);
}
