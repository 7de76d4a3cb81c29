#pragma once
#include <windows.h>

// What the running Windows offers the suite's input synthesis.
class CPlatforme {
public:
    // Looks at the running system.
    CPlatforme() noexcept;
    // A platform described by the caller rather than detected (sendInputFlag as the flag below).
    explicit CPlatforme(DWORD sendInputFlag) noexcept : sendInput_(sendInputFlag) {}
    ~CPlatforme() = default;
    CPlatforme(const CPlatforme&) = default;
    CPlatforme& operator=(const CPlatforme&) = default;

    // Non-zero where key presses are to go through SendInput, zero where keybd_event is used.
    DWORD SendInputFlag() const noexcept { return sendInput_; }

private:
    DWORD sendInput_ = 0;
};
