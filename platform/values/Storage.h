#pragma once

#include "../base/Export.h"
#include "IntrusivePointer.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

class KeySet;
class Value;

/// The reference-counted blocks behind values. Immutable after construction; threads may share them.

/// The bytes of a string or of data.
class ByteBlock {
public:
    /// Returns null for no bytes.
    WARDLOCK_API static IntrusivePointer<ByteBlock> create(std::string_view bytes);

    std::string_view bytes() const { return {reinterpret_cast<const char*>(this + 1), length_}; }
    void retain() { references_.fetch_add(1, std::memory_order_relaxed); }
    void release() {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            destroy();
    }

private:
    explicit ByteBlock(std::size_t length) : length_(length) {}
    WARDLOCK_API void destroy();

    std::atomic<std::uint32_t> references_{1};
    std::size_t length_;
};

/// The elements of an array, or the values of a dictionary beside their keys.
class ContainerBlock {
public:
    /// Moves the values in; returns null for none. A dictionary has as many `keys` as values; for an array
    /// `keys` is null.
    static IntrusivePointer<ContainerBlock> create(Value* values, std::size_t count,
                                                   IntrusivePointer<KeySet> keys = {});

    std::size_t size() const { return count_; }
    const Value* values() const { return reinterpret_cast<const Value*>(this + 1); }
    /// Only of a dictionary.
    KeySet* keys() const { return keys_; }
    void retain() { references_.fetch_add(1, std::memory_order_relaxed); }
    void release() {
        if (dropsLastReference())
            destroy(this);
    }

private:
    ContainerBlock(std::size_t count, KeySet* keys)
        : count_(static_cast<std::uint32_t>(count)), keys_(keys) {}

    bool dropsLastReference() { return references_.fetch_sub(1, std::memory_order_acq_rel) == 1; }
    Value* mutableValues() { return reinterpret_cast<Value*>(this + 1); }
    /// Frees the block and everything that only it owned, at any depth, without recursion.
    WARDLOCK_API static void destroy(ContainerBlock* block);
    /// Ends the value; returns its block when the block has no owner left, else null.
    static ContainerBlock* release(Value& value);

    std::atomic<std::uint32_t> references_{1};
    std::uint32_t count_;
    union {
        KeySet* keys_;
        /// While blocks are being freed: the block that contained this one.
        ContainerBlock* outer_;
    };
};

} // namespace platform
