#include "tovutil/BringProcessToForeground.h"
#include "tovutil/ForegroundAttentionGrabber.h"

namespace {
struct Search {
    DWORD processId;
    HWND found;
};

BOOL CALLBACK TakeFirstMainWindow(HWND window, LPARAM context) {
    auto* search = reinterpret_cast<Search*>(context);
    DWORD owner = 0;
    ::GetWindowThreadProcessId(window, &owner);
    if (owner != search->processId || !::IsWindowVisible(window) || ::GetWindow(window, GW_OWNER) != nullptr)
        return TRUE;
    search->found = window;
    return FALSE;
}
}  // namespace

bool BringProcessToForeground(DWORD processId, HANDLE process) noexcept {
    (void)process;  // the id alone identifies the windows; the handle is accepted for callers that hold one
    if (processId == 0) return false;
    Search search{processId, nullptr};
    ::EnumWindows(TakeFirstMainWindow, reinterpret_cast<LPARAM>(&search));
    if (search.found == nullptr) return false;
    if (::IsIconic(search.found)) ::ShowWindow(search.found, SW_RESTORE);
    ForegroundAttentionGrabber grabber;
    return ::SetForegroundWindow(search.found) != FALSE;
}
