#pragma once
#include <windows.h>

namespace wbstest {

// Waits, at most timeoutMs, until done() holds, asking it every pollMs; returns its last answer.
// Messages of the calling thread are dispatched meanwhile, so windows and low-level input hooks
// that the test thread owns keep working while it waits.
template <typename Predicate>
bool WaitFor(Predicate&& done, DWORD timeoutMs, DWORD pollMs = 10) {
    const ULONGLONG deadline = ::GetTickCount64() + timeoutMs;
    for (;;) {
        if (done()) return true;
        const ULONGLONG now = ::GetTickCount64();
        if (now >= deadline) return false;
        const ULONGLONG left = deadline - now;
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(left < pollMs ? left : pollMs),
                                    QS_ALLINPUT);
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
}

}  // namespace wbstest
