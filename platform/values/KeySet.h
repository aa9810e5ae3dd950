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
/// one key set and store only values. A shared key set never changes; one with a single owner may grow.
/// Keys are found through a small hash index, in large sets through a keyed one, which no choice of keys
/// makes slow.
class KeySet {
public:
    static constexpr std::size_t notFound = KeyIndex::none;

    /// Returns an empty set with room for `keys` keys of together `text` bytes.
    static IntrusivePointer<KeySet> create(std::size_t keys = 0, std::size_t text = 0);
    /// Returns a copy with one owner, without the key at the index `without` where one is given.
    IntrusivePointer<KeySet> clone(std::size_t without = notFound) const;

    std::size_t size() const { return spans_.size(); }
    std::string_view operator[](std::size_t index) const {
        return {text_.data() + spans_[index].offset, spans_[index].length};
    }
    /// All keys, one after the other.
    std::string_view text() const { return text_; }
    /// Returns the index of the key, or notFound. Allocates nothing.
    std::size_t find(std::string_view key) const noexcept;
    /// Returns the index of the key, which is added at the end when it is new. Only for a single owner.
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

    /// With more keys than this, the keyed index replaces the small hash index, whose worst case visits all
    /// keys.
    static constexpr std::size_t largestHashed = 64;

    KeySet() = default;
    ~KeySet() = default;

    void append(std::string_view key);
    std::size_t slotOf(std::string_view key) const;
    std::size_t findInIndex(std::string_view key, std::uint32_t hash) const;
    void useSlots(std::size_t count);
    void makeIndex();

    std::atomic<std::uint32_t> references_{1};
    /// Slots of the hash index: a power of two, at least twice the keys.
    std::uint32_t slotCount_ = 8;
    /// Open addressing: index + 1, 0 for a free slot.
    std::array<std::uint8_t, 2 * largestHashed> slots_{};
    std::unique_ptr<KeyIndex> index_;
    std::string text_;
    std::vector<Span> spans_;
};

} // namespace platform
