#include "platform/values/Storage.h"

#include "platform/values/Arena.h"
#include "platform/values/KeySet.h"
#include "platform/values/Value.h"

#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace platform {

static_assert(sizeof(ByteBlock) == 16 && sizeof(ContainerBlock) == 16 && alignof(Value) <= 16);

Arena& ReferenceCount::arena() const {
    const std::size_t distance = (count_.load(std::memory_order_relaxed) & ~inArena) * unit;
    return Arena::ofChunk(reinterpret_cast<const char*>(this) - distance);
}

void ReferenceCount::retainArena() {
    arena().retain();
}

void ReferenceCount::releaseArena() {
    arena().release();
}

ByteBlock::ByteBlock(std::string_view bytes, std::uint32_t references)
    : references_(references), length_(bytes.size()) {
    std::memcpy(reinterpret_cast<char*>(this + 1), bytes.data(), bytes.size());
}

IntrusivePointer<ByteBlock> ByteBlock::create(std::string_view bytes) {
    if (bytes.empty())
        return {};
    void* memory = ::operator new(sizeof(ByteBlock) + bytes.size());
    return IntrusivePointer<ByteBlock>::adopt(new (memory) ByteBlock(bytes));
}

void ByteBlock::destroy() {
    this->~ByteBlock();
    ::operator delete(this);
}

void ContainerBlock::checkCount(std::size_t count) {
    if (count > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("too many values for one container");
}

IntrusivePointer<ContainerBlock> ContainerBlock::create(Value* values, std::size_t count,
                                                        IntrusivePointer<KeySet> keys) {
    if (count == 0)
        return {};
    checkCount(count);
    void* memory = ::operator new(sizeof(ContainerBlock) + count * sizeof(Value));
    auto* block = new (memory) ContainerBlock(count, keys.detach());
    std::uninitialized_move_n(values, count, block->mutableValues());
    return IntrusivePointer<ContainerBlock>::adopt(block);
}

ContainerBlock* ContainerBlock::release(Value& value) {
    ContainerBlock* block = value.detachContainer();
    value.~Value();
    return block && block->references_.release() ? block : nullptr;
}

void ContainerBlock::destroy(ContainerBlock* block) {
    // The blocks being freed, innermost first, are chained through themselves: nothing is allocated, and the
    // nesting takes no stack. Each block counts down the values that it still has.
    ContainerBlock* innermost = nullptr;
    const auto enter = [&innermost](ContainerBlock* each) {
        if (each->keys_)
            each->keys_->release();
        each->outer_ = innermost;
        innermost = each;
    };
    enter(block);
    while (innermost) {
        if (innermost->count_ > 0) {
            if (ContainerBlock* child = release(innermost->mutableValues()[--innermost->count_]))
                enter(child);
            continue;
        }
        ContainerBlock* const empty = std::exchange(innermost, innermost->outer_);
        empty->~ContainerBlock();
        ::operator delete(empty);
    }
}

} // namespace platform
