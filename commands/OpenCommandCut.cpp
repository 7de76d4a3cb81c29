#include "commands/OpenCommandCut.h"

// A placeholder that is absent gives the not-found position, which is not zero either, so the
// command stays whole: commands written without "\"%1\"" are run as they are, "%1" included.
std::wstring CutOpenCommand(const std::wstring& command) {
    const std::wstring::size_type quoted = command.find(L"\"%1\"");
    if (quoted != 0) return command.substr(0, quoted);
    const std::wstring::size_type bare = command.find(L"%1");
    if (bare != 0) return command.substr(0, bare);
    return command;
}
