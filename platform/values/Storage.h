#pragma once

#include "../base/Export.h"
#include "IntrusivePointer.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace platform {

class Arena;
class KeySet;
class Value;

/// The reference-counted blocks behind values. Immutable after construction; threads may share them.

/// Counts the references to a block, and is its first member. A block inside an arena has no count of its
/// own: a reference to it is one to the arena.
class ReferenceCount {
public:
    /// The initial count of a block with one owner.
    static constexpr std::uint32_t one = 1;
    /// The constant count of a block inside an arena, `distance` bytes behind the beginning of its chunk.
    static constexpr std::uint32_t insideArena(std::size_t distance) {
        return inArena | static_cast<std::uint32_t>(distance / unit);
    }

    explicit ReferenceCount(std::uint32_t initial) : count_(initial) {}

    void retain() {
        if (isInArena())
            retainArena();
        else
            count_.fetch_add(1, std::memory_order_relaxed);
    }
    /// Returns whether the block has to be freed: that was the last reference, and no arena frees it.
    bool release() {
        if (!isInArena())
            return count_.fetch_sub(1, std::memory_order_acq_rel) == 1;
        releaseArena();
        return false;
    }

    /// Blocks of an arena begin at multiples of this.
    static constexpr std::size_t unit = 8;

private:
    static constexpr std::uint32_t inArena = std::uint32_t{1} << 31;

    bool isInArena() const { return (count_.load(std::memory_order_relaxed) & inArena) != 0; }
    Arena& arena() const;
    WARDLOCK_API void retainArena();
    WARDLOCK_API void releaseArena();

    std::atomic<std::uint32_t> count_;
};

/// The bytes of a string or of data.
class ByteBlock {
public:
    /// Returns null for no bytes.
    WARDLOCK_API static IntrusivePointer<ByteBlock> create(std::string_view bytes);

    std::string_view bytes() const { return {reinterpret_cast<const char*>(this + 1), length_}; }
    void retain() { references_.retain(); }
    void release() {
        if (references_.release())
            destroy();
    }

private:
    friend class Arena;

    explicit ByteBlock(std::string_view bytes, std::uint32_t references = ReferenceCount::one);
    WARDLOCK_API void destroy();

    ReferenceCount references_;
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
    void retain() { references_.retain(); }
    void release() {
        if (references_.release())
            destroy(this);
    }

private:
    friend class Arena;

    /// The caller adds the values.
    ContainerBlock(std::size_t count, KeySet* keys, std::uint32_t references = ReferenceCount::one)
        : references_(references), count_(static_cast<std::uint32_t>(count)), keys_(keys) {}

    /// Throws std::length_error for more values than a block can count.
    static void checkCount(std::size_t count);

    Value* mutableValues() { return reinterpret_cast<Value*>(this + 1); }
    /// Frees the block and everything that only it owned, at any depth, without recursion.
    WARDLOCK_API static void destroy(ContainerBlock* block);
    /// Ends the value; returns its block when the block has no owner left, else null.
    static ContainerBlock* release(Value& value);

    ReferenceCount references_;
    std::uint32_t count_;
    union {
        KeySet* keys_;
        /// While blocks are being freed: the block that contained this one.
        ContainerBlock* outer_;
    };
};

} // namespace platform
