#pragma once
#include <windows.h>
#include <ddeml.h>

// A DDE string handle together with the instance that made it (freeing needs both).
class ScopedDdeString {
public:
    // A code page of 0 is the DDE default for wide strings.
    ScopedDdeString(DWORD instance, const wchar_t* text, int codePage = 0) noexcept
        : instance_(instance), handle_(::DdeCreateStringHandleW(instance, text, codePage)) {}
    ~ScopedDdeString() {
        if (handle_) ::DdeFreeStringHandle(instance_, handle_);
    }
    ScopedDdeString(const ScopedDdeString&) = delete;
    ScopedDdeString& operator=(const ScopedDdeString&) = delete;

    HSZ get() const noexcept { return handle_; }
    explicit operator bool() const noexcept { return handle_ != nullptr; }
    // Leaves the handle as it is: the owner no longer frees it.
    HSZ release() noexcept {
        HSZ handle = handle_;
        handle_ = nullptr;
        return handle;
    }

private:
    DWORD instance_;
    HSZ handle_;
};
