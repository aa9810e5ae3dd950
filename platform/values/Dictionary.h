#pragma once

#include "../base/Export.h"
#include "Storage.h"

#include <cstddef>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <utility>

namespace platform {

class Value;

/// One entry during iteration: `for (const auto& [key, value] : dictionary)`.
struct DictionaryEntry {
    std::string_view key;
    const Value& value;
};

/// Iterates over keys and values side by side, in insertion order.
class WARDLOCK_API DictionaryIterator {
public:
    using value_type = DictionaryEntry;
    using reference = DictionaryEntry;
    using difference_type = std::ptrdiff_t;
    using iterator_category = std::input_iterator_tag;

    DictionaryIterator(const KeySet* keys, const Value* values, std::size_t index)
        : keys_(keys), values_(values), index_(index) {}

    DictionaryEntry operator*() const;
    DictionaryIterator& operator++() {
        ++index_;
        return *this;
    }
    DictionaryIterator operator++(int) {
        DictionaryIterator before = *this;
        ++index_;
        return before;
    }
    bool operator==(const DictionaryIterator& other) const { return index_ == other.index_; }

private:
    const KeySet* keys_;
    const Value* values_;
    std::size_t index_;
};

/// An immutable map from strings to values that keeps the insertion order: a handle on shared entries, cheap
/// to copy, usable from any thread. Include Value.h.
class WARDLOCK_API Dictionary {
public:
    Dictionary() = default;
    /// Of equal keys the last value counts, at the position of the first.
    Dictionary(std::initializer_list<std::pair<std::string_view, Value>> entries);
    /// Takes a block with keys.
    explicit Dictionary(IntrusivePointer<ContainerBlock> block) : block_(std::move(block)) {}

    std::size_t size() const { return block_ ? block_->size() : 0; }
    bool empty() const { return !block_; }
    /// Returns the value of `key`, or null. Allocates nothing.
    const Value* find(std::string_view key) const noexcept;
    DictionaryIterator begin() const;
    DictionaryIterator end() const;
    /// Returns the keys, which dictionaries may share, valid as long as this one; null when there are none.
    KeySet* keys() const { return block_ ? block_->keys() : nullptr; }
    /// Returns the values, in the order of the keys.
    const Value* values() const { return block_ ? block_->values() : nullptr; }

    /// Returns whether both are handles on the very same entries. All empty dictionaries are the same object.
    bool isSameObject(const Dictionary& other) const { return block_ == other.block_; }
    /// Compares keys and values, in any order.
    bool operator==(const Dictionary& other) const;

private:
    friend class Value;

    IntrusivePointer<ContainerBlock> block_;
};

} // namespace platform
