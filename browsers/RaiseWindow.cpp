#include "browsers/RaiseWindow.h"
#include "tovutil/ForegroundAttentionGrabber.h"

bool RaiseWindow(HWND window) {
    WINDOWPLACEMENT placement = {};
    placement.length = sizeof placement;
    ::GetWindowPlacement(window, &placement);
    if (placement.showCmd == SW_SHOWMINIMIZED || placement.showCmd == SW_MINIMIZE || ::IsIconic(window))
        ::ShowWindow(window, SW_RESTORE);
    ForegroundAttentionGrabber grabber;
    return ::SetForegroundWindow(window) != FALSE;
}
