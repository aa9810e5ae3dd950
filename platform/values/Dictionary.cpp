#include "platform/values/Dictionary.h"

#include "platform/values/KeySet.h"
#include "platform/values/Value.h"

namespace platform {

DictionaryEntry DictionaryIterator::operator*() const {
    return {(*keys_)[index_], values_[index_]};
}

Dictionary::Dictionary(std::initializer_list<std::pair<std::string_view, Value>> entries) {
    MutableDictionary all;
    for (const auto& [key, value] : entries)
        all.set(key, value);
    *this = all.copy();
}

const Value* Dictionary::find(std::string_view key) const noexcept {
    if (!block_)
        return nullptr;
    const std::size_t index = block_->keys()->find(key);
    return index == KeySet::notFound ? nullptr : block_->values() + index;
}

DictionaryIterator Dictionary::begin() const {
    return block_ ? DictionaryIterator(block_->keys(), block_->values(), 0) : end();
}

DictionaryIterator Dictionary::end() const {
    return {nullptr, nullptr, size()};
}

bool Dictionary::operator==(const Dictionary& other) const {
    return Value(*this) == Value(other);
}

} // namespace platform
