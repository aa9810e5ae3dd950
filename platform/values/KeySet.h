#pragma once

#include "platform/values/IntrusivePointer.h"
#include "platform/values/KeyIndex.h"

#include <array>
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The keys of dictionaries, in order. Records of one kind have the same keys, so their dictionaries share
/// one key set and hold only values. Shared key sets are never changed; one with a single owner may grow.
/// Keys are found through a small hash index, in large sets through a keyed one, which no choice of keys
/// makes slow.
class KeySet {
public:
    static constexpr std::size_t notFound = KeyIndex::none;

    /// An empty set with room for the keys and the text told.
    static IntrusivePointer<KeySet> create(std::size_t keys = 0, std::size_t text = 0);
    /// A copy with one owner, without the key at an index where one is given.
    IntrusivePointer<KeySet> clone(std::size_t without = notFound) const;

    std::size_t size() const { return spans_.size(); }
    std::string_view operator[](std::size_t index) const {
        return {text_.data() + spans_[index].offset, spans_[index].length};
    }
    /// All keys, one after the other.
    std::string_view text() const { return text_; }
    /// The place of the key, or notFound. Allocates nothing.
    std::size_t find(std::string_view key) const noexcept;
    /// The place of the key, which is added at the end when it is new. Only by the single owner.
    std::size_t add(std::string_view key);

    bool hasSingleOwner() const { return references_.load(std::memory_order_acquire) == 1; }
    void retain() { references_.fetch_add(1, std::memory_order_relaxed); }
    void release() {
        if (references_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }

private:
    struct Span {
        std::size_t offset;
        std::size_t length;
    };

    /// Beyond this many keys the small hash index, whose worst case is a walk over all of them, gives way to
    /// the keyed one.
    static constexpr std::size_t largestHashed = 64;

    KeySet() = default;
    ~KeySet() = default;

    void append(std::string_view key);
    std::size_t slotOf(std::string_view key) const;
    std::size_t findInIndex(std::string_view key, std::uint32_t hash) const;
    void useSlots(std::size_t count);
    void makeIndex();

    std::atomic<std::uint32_t> references_{1};
    /// Of the hash index: a power of two, at least twice the keys.
    std::uint32_t slotCount_ = 8;
    /// Open addressing: place + 1, 0 for a free slot.
    std::array<std::uint8_t, 2 * largestHashed> slots_{};
    std::unique_ptr<KeyIndex> index_;
    std::string text_;
    std::vector<Span> spans_;
};

} // namespace platform
