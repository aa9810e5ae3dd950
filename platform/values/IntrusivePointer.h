#pragma once

#include <utility>

namespace platform {

/// Owns one reference to a block that counts its own references (`retain()`, `release()`); may be null. Any
/// thread: the blocks count atomically.
template <class T>
class IntrusivePointer {
public:
    IntrusivePointer() = default;
    /// Takes over a reference that the caller already owns.
    static IntrusivePointer adopt(T* block) {
        IntrusivePointer reference;
        reference.block_ = block;
        return reference;
    }
    /// Takes a reference of its own.
    static IntrusivePointer share(T* block) {
        if (block)
            block->retain();
        return adopt(block);
    }
    IntrusivePointer(const IntrusivePointer& other) : block_(share(other.block_).detach()) {}
    IntrusivePointer(IntrusivePointer&& other) noexcept : block_(std::exchange(other.block_, nullptr)) {}
    IntrusivePointer& operator=(IntrusivePointer other) noexcept {
        std::swap(block_, other.block_);
        return *this;
    }
    ~IntrusivePointer() {
        if (block_)
            block_->release();
    }

    T* get() const { return block_; }
    T* operator->() const { return block_; }
    T& operator*() const { return *block_; }
    explicit operator bool() const { return block_ != nullptr; }
    bool operator==(const IntrusivePointer& other) const = default;
    /// Hands the reference to the caller and becomes null.
    T* detach() { return std::exchange(block_, nullptr); }

private:
    T* block_ = nullptr;
};

} // namespace platform
