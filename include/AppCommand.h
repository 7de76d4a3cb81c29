#pragma once

// Browser application commands, numbered as the Windows application commands (sent in the high
// word of WM_APPCOMMAND's lParam).
enum AppCommand : int {
    AppCommandBack = 1,
    AppCommandForward = 2,
    AppCommandRefresh = 3,
    AppCommandStop = 4,
    AppCommandSearch = 5,
    AppCommandFavorites = 6,
    AppCommandHome = 7,
};
