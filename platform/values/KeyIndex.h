#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace platform {

/// Where the keys of a large set stand, found by a hash that is keyed with a secret of the process: nobody
/// who writes a file can choose keys that make it slow. Keys are told by their places; the set compares them.
class KeyIndex {
public:
    /// Room for as many keys; more are taken.
    explicit KeyIndex(std::size_t expected);

    static std::uint32_t hashOf(std::string_view key);

    /// The place for which `isKey(place)` answers true among those added with the hash; `none` for no such.
    template <class IsKey>
    std::size_t find(std::uint32_t hash, IsKey isKey) const {
        const std::size_t mask = slots_.size() - 1;
        for (std::size_t slot = hash & mask; slots_[slot].next != 0; slot = (slot + 1) & mask) {
            if (slots_[slot].hash == hash && isKey(slots_[slot].next - 1))
                return slots_[slot].next - 1;
        }
        return none;
    }
    /// A key that is not there yet.
    void add(std::uint32_t hash, std::size_t place);

    static constexpr std::size_t none = static_cast<std::size_t>(-1);

private:
    struct Slot {
        std::uint32_t hash = 0;
        /// Place + 1; 0 for a free slot.
        std::uint32_t next = 0;
    };

    void put(Slot filled);

    /// Open addressing over a power of two, at most half full.
    std::vector<Slot> slots_;
    std::size_t count_ = 0;
};

} // namespace platform
