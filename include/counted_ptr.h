#pragma once
#include <cstdint>
#include <new>
#include <utility>

// Owning pointer to a shared block holding the object pointer and a plain 32-bit count. Copies
// share the block; the last release deletes the object (through its virtual destructor) and the
// block. A null block and a block holding a null object are both empty. Not thread-safe.
template <typename T>
class counted_ptr {
public:
    counted_ptr() noexcept = default;
    // Takes the object over; if its block cannot be had the object is deleted and the pointer
    // stays empty, so nothing leaks and nothing throws.
    explicit counted_ptr(T* object) noexcept : block_(object ? new (std::nothrow) Block{object, 1} : nullptr) {
        if (object && !block_) delete object;
    }
    counted_ptr(const counted_ptr& other) noexcept : block_(other.block_) { AddRef(); }
    counted_ptr(counted_ptr&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    ~counted_ptr() { Release(); }

    counted_ptr& operator=(const counted_ptr& other) noexcept {
        if (block_ != other.block_) {
            Release();
            block_ = other.block_;
            AddRef();
        }
        return *this;
    }
    counted_ptr& operator=(counted_ptr&& other) noexcept {
        if (this != &other) {
            Release();
            block_ = std::exchange(other.block_, nullptr);
        }
        return *this;
    }

    T* get() const noexcept { return block_ ? block_->object : nullptr; }
    T* operator->() const noexcept { return get(); }
    T& operator*() const noexcept { return *get(); }
    bool empty() const noexcept { return get() == nullptr; }
    explicit operator bool() const noexcept { return !empty(); }
    std::int32_t use_count() const noexcept { return block_ ? block_->count : 0; }
    void reset() noexcept { Release(); }

private:
    struct Block {
        T* object;
        std::int32_t count;
    };
    void AddRef() noexcept {
        if (block_) ++block_->count;
    }
    void Release() noexcept {
        if (block_ && --block_->count == 0) {
            delete block_->object;
            delete block_;
        }
        block_ = nullptr;
    }
    Block* block_ = nullptr;
};
