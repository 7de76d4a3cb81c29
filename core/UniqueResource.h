#pragma once
#include <utility>

// One owner of one Win32 resource. Traits give the resource type, its invalid value and how to
// free it. The out-parameter form (Receive) frees what was held before handing out the address.
template <typename Traits>
class UniqueResource {
public:
    using Type = typename Traits::Type;

    UniqueResource() noexcept = default;
    explicit UniqueResource(Type value) noexcept : value_(value) {}
    UniqueResource(const UniqueResource&) = delete;
    UniqueResource& operator=(const UniqueResource&) = delete;
    UniqueResource(UniqueResource&& other) noexcept : value_(other.release()) {}
    UniqueResource& operator=(UniqueResource&& other) noexcept {
        if (this != &other) reset(other.release());
        return *this;
    }
    ~UniqueResource() { reset(); }

    Type get() const noexcept { return value_; }
    bool valid() const noexcept { return value_ != Traits::Invalid(); }
    explicit operator bool() const noexcept { return valid(); }

    void reset(Type value = Traits::Invalid()) noexcept {
        Type old = std::exchange(value_, value);
        if (old != Traits::Invalid()) Traits::Free(old);
    }
    [[nodiscard]] Type release() noexcept { return std::exchange(value_, Traits::Invalid()); }
    Type* Receive() noexcept {
        reset();
        return &value_;
    }

private:
    Type value_ = Traits::Invalid();
};
