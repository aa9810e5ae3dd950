#include "platform/plist/StringPool.h"

#include "platform/values/ShortString.h"

#include <algorithm>
#include <bit>

namespace platform {

namespace {

constexpr std::size_t longestShared = 64;
constexpr std::size_t fewestSlots = 16;
constexpr std::size_t mostSlots = 4096;
constexpr std::size_t bytesPerSlot = 128;

} // namespace

StringPool::StringPool(Arena& arena, std::size_t documentSize, std::pmr::memory_resource* scratch)
    : arena_(arena),
      slots_(std::bit_ceil(std::clamp(documentSize / bytesPerSlot, fewestSlots, mostSlots)), scratch) {}

ArenaValue StringPool::string(std::string_view text) {
    if (text.empty() || text.size() > longestShared)
        return {Value::Kind::String, arena_.bytes(text)};
    ByteBlock** const pair = &slots_[hashShortString(text) & (slots_.size() - 2)];
    for (ByteBlock* const known : {pair[0], pair[1]})
        if (known && equalShortStrings(known->bytes(), text))
            return {Value::Kind::String, known};
    pair[1] = pair[0];
    pair[0] = arena_.bytes(text);
    return {Value::Kind::String, pair[0]};
}

} // namespace platform
