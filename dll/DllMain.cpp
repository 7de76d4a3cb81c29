#include <windows.h>

// The library starts no threads and needs no per-thread notifications; its process-wide state
// (the factory list, the constant tables) is built and torn down by static construction.
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) ::DisableThreadLibraryCalls(instance);
    return TRUE;
}
