#include "tovutil/ExecuteProgram.h"
#include <shellapi.h>
#include "core/ScopedHandle.h"

namespace {
constexpr DWORD kWaitLimitMs = 30000;
}

bool ExecuteProgram(const wchar_t* what, int showCommand, bool wait, const wchar_t* parameters) noexcept {
    if (what == nullptr) return false;
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    // No dialog of the shell's own: a refused address is reported as false, never shown.
    // Synchronous: a host that returns (or a command-line host that exits) at once still hands it over.
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC | (wait ? SEE_MASK_NOCLOSEPROCESS : 0);
    info.lpVerb = L"open";
    info.lpFile = what;
    info.lpParameters = parameters;
    info.nShow = showCommand;
    if (!::ShellExecuteExW(&info)) return false;
    // A handler that reuses a running program starts no process, so there may be nothing to wait for.
    ScopedHandle process(info.hProcess);
    // Bounded like every wait in the library: a program that runs on is not waited for past it.
    if (process) ::WaitForSingleObject(process.get(), kWaitLimitMs);
    return true;
}
