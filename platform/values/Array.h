#pragma once

#include "../base/Export.h"
#include "Storage.h"

#include <cstddef>
#include <initializer_list>
#include <vector>

namespace platform {

class Value;

/// An immutable list of values: a handle on shared elements, cheap to copy, usable from any thread. Include
/// Value.h.
class WARDLOCK_API Array {
public:
    Array() = default;
    /// Write an array of one array as `Array{Value(other)}`. From `Array{other}` gcc makes the same, but
    /// clang makes a copy.
    Array(std::initializer_list<Value> values);
    explicit Array(std::vector<Value> values);
    explicit Array(IntrusivePointer<ContainerBlock> block) : block_(std::move(block)) {}

    std::size_t size() const { return block_ ? block_->size() : 0; }
    bool empty() const { return !block_; }
    /// Throws NSException (NSRangeException) beyond the end.
    const Value& at(std::size_t index) const;
    const Value& operator[](std::size_t index) const;
    const Value* begin() const { return block_ ? block_->values() : nullptr; }
    const Value* end() const;

    /// Returns whether both are handles on the very same elements. All empty arrays are the same object.
    bool isSameObject(const Array& other) const { return block_ == other.block_; }
    bool operator==(const Array& other) const;

private:
    friend class Value;

    IntrusivePointer<ContainerBlock> block_;
};

} // namespace platform
