#include "platform/values/MutableArray.h"

#include "platform/values/RangeCheck.h"
#include "platform/values/Value.h"

namespace platform {

MutableArray::MutableArray() = default;
MutableArray::MutableArray(const Array& array) : values_(array.begin(), array.end()) {}
MutableArray::MutableArray(const MutableArray& other) = default;
MutableArray::MutableArray(MutableArray&& other) noexcept = default;
MutableArray& MutableArray::operator=(const MutableArray& other) = default;
MutableArray& MutableArray::operator=(MutableArray&& other) noexcept = default;
MutableArray::~MutableArray() = default;

std::size_t MutableArray::size() const {
    return values_.size();
}

bool MutableArray::empty() const {
    return values_.empty();
}

const Value& MutableArray::at(std::size_t index) const {
    checkIndex(index, size());
    return values_[index];
}

const Value* MutableArray::begin() const {
    return values_.data();
}

const Value* MutableArray::end() const {
    return values_.data() + values_.size();
}

void MutableArray::append(Value value) {
    values_.push_back(std::move(value));
}

void MutableArray::insert(std::size_t index, Value value) {
    checkIndex(index, size() + 1);
    values_.insert(values_.begin() + static_cast<std::ptrdiff_t>(index), std::move(value));
}

void MutableArray::replace(std::size_t index, Value value) {
    checkIndex(index, size());
    values_[index] = std::move(value);
}

void MutableArray::remove(std::size_t index) {
    checkIndex(index, size());
    values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(index));
}

void MutableArray::removeObject(const Value& value) {
    // A copy: the value may be an element of this array, and erasing would change it.
    std::erase(values_, Value(value));
}

Array MutableArray::copy() const {
    return Array(values_);
}

} // namespace platform
