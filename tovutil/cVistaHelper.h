#pragma once
#include <windows.h>

// Held around registry and file look-ups that must see the machine's native view: in a 32-bit
// build running on 64-bit Windows it turns off file-system redirection for its lifetime. A
// 64-bit process already has the native view and changes nothing.
class cVistaHelper {
public:
    cVistaHelper() noexcept;
    ~cVistaHelper();
    cVistaHelper(const cVistaHelper&) = delete;
    cVistaHelper& operator=(const cVistaHelper&) = delete;
    bool Redirecting() const noexcept { return redirectionOff_; }

private:
    PVOID oldValue_ = nullptr;
    bool redirectionOff_ = false;
};
