#pragma once
#include <windows.h>
#include <ddeml.h>

// A DDEML instance, uninitialised when the owner goes.
class ScopedDdeInstance {
public:
    ScopedDdeInstance() noexcept = default;
    ~ScopedDdeInstance() { reset(); }
    ScopedDdeInstance(const ScopedDdeInstance&) = delete;
    ScopedDdeInstance& operator=(const ScopedDdeInstance&) = delete;

    DWORD get() const noexcept { return id_; }
    DWORD* Receive() noexcept {
        reset();
        return &id_;
    }
    void reset() noexcept {
        if (id_) ::DdeUninitialize(id_);
        id_ = 0;
    }
    // Leaves the instance as it is: the owner no longer uninitialises it.
    DWORD release() noexcept {
        const DWORD id = id_;
        id_ = 0;
        return id;
    }

private:
    DWORD id_ = 0;
};
