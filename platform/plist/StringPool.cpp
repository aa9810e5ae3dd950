#include "platform/plist/StringPool.h"

#include "platform/values/ShortString.h"

#include <algorithm>
#include <bit>

namespace platform {

namespace {

constexpr std::size_t longestShared = 64;
constexpr std::size_t fewestSlots = 16;
constexpr std::size_t mostSlots = 4096;
constexpr std::size_t bytesPerSlot = 64;

} // namespace

StringPool::StringPool(std::size_t documentSize)
    : slots_(std::bit_ceil(std::clamp(documentSize / bytesPerSlot, fewestSlots, mostSlots))) {}

Value StringPool::string(std::string_view text) {
    if (text.size() > longestShared)
        return Value(text);
    IntrusivePointer<ByteBlock>& slot = slots_[hashShortString(text) & (slots_.size() - 1)];
    if (!slot || !equalShortStrings(slot->bytes(), text))
        slot = ByteBlock::create(text);
    return Value(Value::Kind::String, slot);
}

} // namespace platform
