#pragma once

#include "../base/Export.h"
#include "Array.h"

#include <cstddef>
#include <vector>

namespace platform {

/// A list of values that can be changed: a copy of an array one level deep, whose elements stay shared. An
/// index beyond the end throws NSException (NSRangeException) before anything is changed. Include Value.h.
class WARDLOCK_API MutableArray {
public:
    MutableArray();
    explicit MutableArray(const Array& array);
    MutableArray(const MutableArray& other);
    MutableArray(MutableArray&& other) noexcept;
    MutableArray& operator=(const MutableArray& other);
    MutableArray& operator=(MutableArray&& other) noexcept;
    ~MutableArray();

    std::size_t size() const;
    bool empty() const;
    const Value& at(std::size_t index) const;
    const Value* begin() const;
    const Value* end() const;

    void append(Value value);
    /// Inserts before the element at `index`; at the end where `index` is the size.
    void insert(std::size_t index, Value value);
    void replace(std::size_t index, Value value);
    void remove(std::size_t index);
    /// Removes every element that equals `value`.
    void removeObject(const Value& value);

    Array copy() const;

private:
    std::vector<Value> values_;
};

} // namespace platform
