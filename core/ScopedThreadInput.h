#pragma once
#include <windows.h>

// Attaches this thread's input to another thread's for one scope and always detaches again.
// Attaching to oneself, or to no thread, does nothing.
class ScopedThreadInput {
public:
    explicit ScopedThreadInput(DWORD targetThread) noexcept
        : self_(::GetCurrentThreadId()), target_(targetThread) {
        attached_ = target_ != 0 && target_ != self_ && ::AttachThreadInput(self_, target_, TRUE) != FALSE;
    }
    ~ScopedThreadInput() {
        if (attached_) ::AttachThreadInput(self_, target_, FALSE);
    }
    ScopedThreadInput(const ScopedThreadInput&) = delete;
    ScopedThreadInput& operator=(const ScopedThreadInput&) = delete;
    bool attached() const noexcept { return attached_; }

private:
    DWORD self_;
    DWORD target_;
    bool attached_;
};
