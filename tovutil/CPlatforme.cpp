#include "tovutil/CPlatforme.h"

// The flag is set exactly where USER32.DLL exports SendInput, since the key presser looks the
// function up on the strength of this flag alone. USER32 is mapped into every process that uses
// this library, so asking for its handle neither loads it nor takes a reference to free.
CPlatforme::CPlatforme() noexcept {
    const HMODULE user32 = ::GetModuleHandleW(L"USER32.DLL");
    sendInput_ = (user32 != nullptr && ::GetProcAddress(user32, "SendInput") != nullptr) ? 1 : 0;
}
