#include "platform/values/Storage.h"

#include "platform/values/KeySet.h"
#include "platform/values/Value.h"

#include <cstring>
#include <limits>
#include <memory>
#include <new>
#include <stdexcept>

namespace platform {

static_assert(sizeof(ByteBlock) == 16 && sizeof(ContainerBlock) == 16 && alignof(Value) <= 16);

IntrusivePointer<ByteBlock> ByteBlock::create(std::string_view bytes) {
    if (bytes.empty())
        return {};
    auto* block = new (::operator new(sizeof(ByteBlock) + bytes.size())) ByteBlock(bytes.size());
    std::memcpy(reinterpret_cast<char*>(block + 1), bytes.data(), bytes.size());
    return IntrusivePointer<ByteBlock>::adopt(block);
}

void ByteBlock::destroy() {
    this->~ByteBlock();
    ::operator delete(this);
}

IntrusivePointer<ContainerBlock> ContainerBlock::create(Value* values, std::size_t count,
                                                        IntrusivePointer<KeySet> keys) {
    if (count == 0)
        return {};
    if (count > std::numeric_limits<std::uint32_t>::max())
        throw std::length_error("too many values for one container");
    void* memory = ::operator new(sizeof(ContainerBlock) + count * sizeof(Value));
    auto* block = new (memory) ContainerBlock(count, keys.detach());
    std::uninitialized_move_n(values, count, block->mutableValues());
    return IntrusivePointer<ContainerBlock>::adopt(block);
}

ContainerBlock* ContainerBlock::release(Value& value) {
    ContainerBlock* block = value.detachContainer();
    value.~Value();
    return block && block->dropsLastReference() ? block : nullptr;
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
