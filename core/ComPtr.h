#pragma once
#include <unknwn.h>
#include <utility>

// One owning reference to one COM interface: released when the owner goes. The out-parameter
// form (Receive) releases what was held before handing out the address.
template <typename Interface>
class ComPtr {
public:
    ComPtr() noexcept = default;
    ComPtr(const ComPtr&) = delete;
    ComPtr& operator=(const ComPtr&) = delete;
    ComPtr(ComPtr&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPtr& operator=(ComPtr&& other) noexcept {
        if (this != &other) reset(std::exchange(other.pointer_, nullptr));
        return *this;
    }
    ~ComPtr() { reset(); }

    Interface* get() const noexcept { return pointer_; }
    Interface* operator->() const noexcept { return pointer_; }
    explicit operator bool() const noexcept { return pointer_ != nullptr; }

    // Takes over a reference the caller already owns.
    void reset(Interface* pointer = nullptr) noexcept {
        Interface* old = std::exchange(pointer_, pointer);
        if (old != nullptr) old->Release();
    }
    Interface** Receive() noexcept {
        reset();
        return &pointer_;
    }
    // For creation and QueryInterface, which hand the new reference out as void**.
    void** ReceiveVoid() noexcept { return reinterpret_cast<void**>(Receive()); }

private:
    Interface* pointer_ = nullptr;
};
