#include "input/CZyPressKey.h"

#if defined(_WIN64)
static_assert(sizeof(INPUT) == 40, "one keyboard record is the 40-byte INPUT of 64-bit Windows");
#endif

CZyPressKey::CZyPressKey() { LoadSendInput(); }

CZyPressKey::CZyPressKey(const CPlatforme& platform) : platform_(platform) { LoadSendInput(); }

void CZyPressKey::LoadSendInput() {
    state_ = 0;
    if (platform_.SendInputFlag() == 0) return;
    user32_.reset(::LoadLibraryW(L"USER32.DLL"));
    if (!user32_) return;
    // Through the generic function-pointer type, the one cast between function types that
    // compilers accept without comment.
    const auto address = reinterpret_cast<void (*)()>(::GetProcAddress(user32_.get(), "SendInput"));
    sendInput_ = reinterpret_cast<SendInputFunction>(address);
}

void CZyPressKey::PressKey(BYTE virtualKey, DWORD flags) {
    if (platform_.SendInputFlag() == 0) {
        ::keybd_event(virtualKey, 0, flags, 0);
        return;
    }
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = virtualKey;
    input.ki.wScan = 0;
    input.ki.dwFlags = flags;
    input.ki.time = 0;
    input.ki.dwExtraInfo = 0;
    // The platform flag alone chooses this path: a failed look-up never falls back to
    // keybd_event, the event is simply not sent.
    if (sendInput_ != nullptr) sendInput_(1, &input, sizeof(INPUT));
    // Every event gets the browser 40 ms to take it up before the next one comes, so a
    // four-event shortcut takes 160 ms; keybd_event needs no such pause.
    ::Sleep(kPauseMs);
}
