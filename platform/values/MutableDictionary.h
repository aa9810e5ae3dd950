#pragma once

#include "../base/Export.h"
#include "Dictionary.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace platform {

/// A dictionary that can be changed: a copy one level deep, whose values stay shared. The insertion order is
/// kept; a new value under an existing key takes the old one's position. Pointers, iterators and keys stay
/// valid until the next change. Include Value.h.
class WARDLOCK_API MutableDictionary {
public:
    MutableDictionary();
    explicit MutableDictionary(const Dictionary& dictionary);
    MutableDictionary(const MutableDictionary& other);
    MutableDictionary(MutableDictionary&& other) noexcept;
    MutableDictionary& operator=(const MutableDictionary& other);
    MutableDictionary& operator=(MutableDictionary&& other) noexcept;
    ~MutableDictionary();

    std::size_t size() const;
    bool empty() const;
    const Value* find(std::string_view key) const noexcept;
    DictionaryIterator begin() const;
    DictionaryIterator end() const;

    void set(std::string_view key, Value value);
    /// Throws NSException (NSInvalidArgumentException) for null; nothing is changed then.
    void set(std::string_view key, const Value* valueOrNil);
    void remove(std::string_view key);

    Dictionary copy() const;

private:
    IntrusivePointer<KeySet> keys_;
    std::vector<Value> values_;
};

} // namespace platform
