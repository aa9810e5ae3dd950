#include "platform/values/Dictionary.h"

#include "platform/values/Value.h"

namespace platform {

DictionaryEntry DictionaryIterator::operator*() const {
    return {(*keys_)[place_], values_[place_]};
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
    const std::size_t place = block_->keys()->find(key);
    return place == KeySet::notFound ? nullptr : block_->values() + place;
}

DictionaryIterator Dictionary::begin() const {
    return block_ ? DictionaryIterator(block_->keys(), block_->values(), 0) : end();
}

DictionaryIterator Dictionary::end() const {
    return {nullptr, nullptr, size()};
}

IntrusivePointer<KeySet> Dictionary::keys() const {
    if (!block_)
        return {};
    block_->keys()->retain();
    return IntrusivePointer<KeySet>::adopt(block_->keys());
}

bool Dictionary::operator==(const Dictionary& other) const {
    return Value(*this) == Value(other);
}

} // namespace platform
