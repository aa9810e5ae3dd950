#include "platform/values/Array.h"

#include "platform/values/KeySet.h"
#include "platform/values/RangeCheck.h"
#include "platform/values/Value.h"

namespace platform {

Array::Array(std::initializer_list<Value> values) : Array(std::vector<Value>(values)) {}

Array::Array(std::vector<Value> values) : block_(ContainerBlock::create(values.data(), values.size())) {}

const Value& Array::at(std::size_t index) const {
    checkIndex(index, size());
    return (*this)[index];
}

const Value& Array::operator[](std::size_t index) const {
    assert(index < size());
    return block_->values()[index];
}

const Value* Array::end() const {
    return begin() + size();
}

bool Array::operator==(const Array& other) const {
    return Value(*this) == Value(other);
}

} // namespace platform
