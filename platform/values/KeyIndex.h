#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

/// Finds the positions of the keys of a large set. The hash is keyed with a secret of the process: the author
/// of a file cannot choose keys that make it slow. The index stores positions only; the set compares the
/// keys.
class KeyIndex {
public:
    /// Makes room for `expected` keys; more may be added.
    explicit KeyIndex(std::size_t expected);

    static std::uint32_t hashOf(std::string_view key);

    /// Returns the position for which `isKey(position)` is true among those added with `hash`; `none` when
    /// there is none.
    template <class IsKey>
    std::size_t find(std::uint32_t hash, IsKey isKey) const {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t slot = hash & mask; slots_[slot].next != 0; slot = (slot + 1) & mask) {
            if (slots_[slot].hash == hash && isKey(slots_[slot].next - 1))
                return slots_[slot].next - 1;
        }
        return none;
    }
    /// Adds a key that is not in the index yet.
    void add(std::uint32_t hash, std::size_t position);

    static constexpr std::size_t none = static_cast<std::size_t>(-1);

private:
    struct Slot {
        std::uint32_t hash = 0;
        /// Position + 1; 0 for a free slot.
        std::uint32_t next = 0;
    };

    void put(Slot filled);

    /// Open addressing over a power of two, at most half full.
    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

} // namespace platform
