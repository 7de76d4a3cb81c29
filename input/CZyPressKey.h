#pragma once
#include <windows.h>
#include "core/ScopedModule.h"
#include "tovutil/CPlatforme.h"

// Presses or releases one virtual key at a time, through SendInput where the platform offers it
// and keybd_event elsewhere. A shortcut is four calls: modifier down, key down, key up (flags
// KEYEVENTF_KEYUP), modifier up. Meant to live on the stack for one shortcut.
class CZyPressKey {
public:
    CZyPressKey();
    // Uses the given platform instead of the running one's (how the keybd_event path is chosen
    // on systems that have SendInput).
    explicit CZyPressKey(const CPlatforme& platform);
    virtual ~CZyPressKey() = default;
    CZyPressKey(const CZyPressKey&) = delete;
    CZyPressKey& operator=(const CZyPressKey&) = delete;

    // flags: 0 to press, KEYEVENTF_KEYUP (2) to release.
    void PressKey(BYTE virtualKey, DWORD flags);

    // The pause after every key event on the SendInput path.
    static constexpr DWORD kPauseMs = 40;

private:
    using SendInputFunction = UINT(WINAPI*)(UINT, LPINPUT, int);
    void LoadSendInput();

    // Declared first so it goes last: the module is freed before the platform is destroyed.
    CPlatforme platform_;
    ScopedModule user32_;
    SendInputFunction sendInput_ = nullptr;
    // Cleared by the constructor and read by no operation of the presser.
    unsigned char state_ = 0;
};
