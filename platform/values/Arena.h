#pragma once

#include "platform/values/IntrusivePointer.h"
#include "platform/values/KeySet.h"
#include "platform/values/Storage.h"
#include "platform/values/Value.h"

#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// A value that an arena owns: the bytes of a Value, whose reference is not counted. Trivial to copy and to
/// drop. Two whole words, which stay in registers: a Value that is written by its members and copied at once
/// makes the processor wait for each.
class ArenaValue {
public:
    ArenaValue() : ArenaValue(false) {}
    explicit ArenaValue(bool boolean) : head_(headOf(Value::Kind::Boolean)), bits_(boolean ? 1 : 0) {}
    /// A string or data.
    ArenaValue(Value::Kind kind, ByteBlock* bytes) : ArenaValue(kind, static_cast<void*>(bytes)) {}
    /// An array or a dictionary.
    ArenaValue(Value::Kind kind, ContainerBlock* elements) : ArenaValue(kind, static_cast<void*>(elements)) {}
    /// Takes any value that refers to nothing outside the arena.
    explicit ArenaValue(Value&& value) {
        std::memcpy(static_cast<void*>(this), static_cast<const void*>(&value), sizeof value);
        new (&value) Value(false);
    }

    /// A copy of the value counts as a reference to the arena.
    const Value& value() const { return *std::launder(reinterpret_cast<const Value*>(this)); }

private:
    ArenaValue(Value::Kind kind, void* block)
        : head_(headOf(kind)), bits_(reinterpret_cast<std::uintptr_t>(block)) {}

    /// Returns the first word of a Value, which begins with its kind.
    static constexpr std::uint64_t headOf(Value::Kind kind) {
        const auto number = static_cast<std::uint64_t>(kind);
        return std::endian::native == std::endian::little ? number : number << 56;
    }

    /// Written here and read as a Value's members.
    using Word [[gnu::may_alias]] = std::uint64_t;
    Word head_;
    [[maybe_unused]] Word bits_;
};

/// The memory of one document's values, which are built together and freed together: that takes a fraction of
/// the time of blocks one by one. Inside, blocks refer to each other without counting. A reference from
/// outside to any of them keeps the whole arena.
///
/// One thread builds; afterwards nothing changes but the count, and any thread may share the blocks.
class Arena {
public:
    /// Makes room for `expected` bytes; more may be taken.
    static IntrusivePointer<Arena> create(std::size_t expected);

    /// Returns null for no bytes.
    ByteBlock* bytes(std::string_view bytes);
    ArenaValue array(const ArenaValue* values, std::size_t count) {
        return {Value::Kind::Array, container(values, count, nullptr)};
    }
    /// `keys` is one that the arena keeps; `values` has as many elements.
    ArenaValue dictionary(KeySet& keys, const ArenaValue* values) {
        return {Value::Kind::Dictionary, container(values, keys.size(), &keys)};
    }
    /// Owns the keys from now on.
    void keep(IntrusivePointer<KeySet> keys) {
        if (firstKeySetCount_ < firstKeySets_.size())
            firstKeySets_[firstKeySetCount_++] = std::move(keys);
        else
            moreKeySets_.push_back(std::move(keys));
    }

    void retain() { references_.fetch_add(1, std::memory_order_relaxed); }
    void release() {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            destroy();
    }

    /// Returns the arena of the chunk that begins at the address.
    static Arena& ofChunk(const char* chunk) { return *reinterpret_cast<const Chunk*>(chunk)->arena; }

private:
    /// The beginning of each piece of memory.
    struct Chunk {
        Arena* arena;
        Chunk* before;
    };

    Arena(char* free, char* end) : first_{this, nullptr}, newest_(&first_), free_(free), end_(end) {}
    ~Arena() = default;

    ContainerBlock* container(const ArenaValue* values, std::size_t count, KeySet* keys);
    char* take(std::size_t size);
    void addChunk(std::size_t size);
    void destroy();
    std::uint32_t referencesAt(const char* block) const;

    /// The first member: the arena is the beginning of its first chunk.
    Chunk first_;
    Chunk* newest_;
    char* free_;
    char* end_;
    std::atomic<std::uint32_t> references_{1};
    /// Those of an ordinary document need no memory of their own.
    std::array<IntrusivePointer<KeySet>, 4> firstKeySets_;
    std::size_t firstKeySetCount_ = 0;
    std::vector<IntrusivePointer<KeySet>> moreKeySets_;
};

} // namespace platform
