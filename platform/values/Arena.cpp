#include "platform/values/Arena.h"

#include <algorithm>
#include <new>

namespace platform {

namespace {

/// Below the size from which the C library maps new memory for each allocation.
constexpr std::size_t chunkSize = std::size_t(64) << 10;

constexpr std::size_t roundedUp(std::size_t size) {
    return (size + ReferenceCount::unit - 1) / ReferenceCount::unit * ReferenceCount::unit;
}

} // namespace

IntrusivePointer<Arena> Arena::create(std::size_t expected) {
    const std::size_t size = sizeof(Arena) + roundedUp(std::min(expected, chunkSize));
    auto* memory = static_cast<char*>(::operator new(size));
    return IntrusivePointer<Arena>::adopt(new (memory) Arena(memory + sizeof(Arena), memory + size));
}

ByteBlock* Arena::bytes(std::string_view bytes) {
    if (bytes.empty())
        return nullptr;
    char* const memory = take(sizeof(ByteBlock) + bytes.size());
    return new (memory) ByteBlock(bytes, referencesAt(memory));
}

/// Returns null for no values.
ContainerBlock* Arena::container(const ArenaValue* values, std::size_t count, KeySet* keys) {
    static_assert(sizeof(ArenaValue) == sizeof(Value) && alignof(Value) <= ReferenceCount::unit);
    if (count == 0)
        return nullptr;
    ContainerBlock::checkCount(count);
    char* const memory = take(sizeof(ContainerBlock) + count * sizeof(Value));
    auto* block = new (memory) ContainerBlock(count, keys, referencesAt(memory));
    std::memcpy(static_cast<void*>(block->mutableValues()), values, count * sizeof(Value));
    return block;
}

/// Takes memory for a block off the newest chunk.
char* Arena::take(std::size_t size) {
    size = roundedUp(size);
    if (size > static_cast<std::size_t>(end_ - free_))
        addChunk(size);
    return std::exchange(free_, free_ + size);
}

void Arena::addChunk(std::size_t size) {
    size = std::max(chunkSize, sizeof(Chunk) + size);
    auto* memory = static_cast<char*>(::operator new(size));
    newest_ = new (memory) Chunk{this, newest_};
    free_ = memory + sizeof(Chunk);
    end_ = memory + size;
}

std::uint32_t Arena::referencesAt(const char* block) const {
    return ReferenceCount::insideArena(
        static_cast<std::size_t>(block - reinterpret_cast<const char*>(newest_)));
}

void Arena::destroy() {
    while (newest_ != &first_)
        ::operator delete(std::exchange(newest_, newest_->before));
    this->~Arena();
    ::operator delete(this);
}

} // namespace platform
