#include "platform/values/KeyIndex.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <random>
#include <utility>

namespace platform {
namespace {

using Secret = std::array<std::uint64_t, 2>;

const Secret& secret() {
    static const Secret drawn = [] {
        std::random_device random;
        const auto word = [&random] { return std::uint64_t{random()} << 32 | random(); };
        return Secret{word(), word()};
    }();
    return drawn;
}

/// The state of SipHash, with one round per word and three at the end.
struct Sip {
    std::uint64_t v0 = secret()[0] ^ 0x736f6d6570736575;
    std::uint64_t v1 = secret()[1] ^ 0x646f72616e646f6d;
    std::uint64_t v2 = secret()[0] ^ 0x6c7967656e657261;
    std::uint64_t v3 = secret()[1] ^ 0x7465646279746573;

    void round() {
        v0 += v1;
        v1 = std::rotl(v1, 13) ^ v0;
        v0 = std::rotl(v0, 32);
        v2 += v3;
        v3 = std::rotl(v3, 16) ^ v2;
        v0 += v3;
        v3 = std::rotl(v3, 21) ^ v0;
        v2 += v1;
        v1 = std::rotl(v1, 17) ^ v2;
        v2 = std::rotl(v2, 32);
    }
    void take(std::uint64_t word) {
        v3 ^= word;
        round();
        v0 ^= word;
    }
    std::uint64_t end() {
        v2 ^= 0xFF;
        round();
        round();
        round();
        return v0 ^ v1 ^ v2 ^ v3;
    }
};

std::uint64_t loadWord64(const char* bytes, std::size_t count) {
    std::uint64_t word = 0;
    // The empty key may have a null address.
    if (count > 0)
        std::memcpy(&word, bytes, count);
    return word;
}

constexpr std::size_t fewestSlots = 16;

} // namespace

KeyIndex::KeyIndex(std::size_t expected) : slots_(std::bit_ceil(std::max(fewestSlots, expected * 2))) {}

std::uint32_t KeyIndex::hashOf(std::string_view key) {
    Sip sip;
    std::size_t i = 0;
    for (; i + sizeof(std::uint64_t) <= key.size(); i += sizeof(std::uint64_t))
        sip.take(loadWord64(key.data() + i, sizeof(std::uint64_t)));
    sip.take(loadWord64(key.data() + i, key.size() - i) | std::uint64_t{key.size()} << 56);
    return static_cast<std::uint32_t>(sip.end());
}

void KeyIndex::add(std::uint32_t hash, std::size_t position) {
    if (++count_ * 2 > slots_.size()) {
        const std::vector<Slot> before = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
        for (const Slot& slot : before) {
            if (slot.next != 0)
                put(slot);
        }
    }
    put({hash, static_cast<std::uint32_t>(position + 1)});
}

void KeyIndex::put(Slot filled) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = filled.hash & mask;
    while (slots_[slot].next != 0)
        slot = (slot + 1) & mask;
    slots_[slot] = filled;
}

} // namespace platform
