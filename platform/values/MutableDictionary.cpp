#include "platform/values/MutableDictionary.h"

#include "platform/values/KeySet.h"
#include "platform/values/NSException.h"
#include "platform/values/Value.h"

#include <algorithm>

namespace platform {

MutableDictionary::MutableDictionary() = default;

MutableDictionary::MutableDictionary(const Dictionary& dictionary) {
    if (dictionary.empty())
        return;
    keys_ = IntrusivePointer<KeySet>::share(dictionary.keys());
    values_.assign(dictionary.values(), dictionary.values() + dictionary.size());
}

MutableDictionary::MutableDictionary(const MutableDictionary& other) = default;
MutableDictionary::MutableDictionary(MutableDictionary&& other) noexcept = default;
MutableDictionary& MutableDictionary::operator=(const MutableDictionary& other) = default;
MutableDictionary& MutableDictionary::operator=(MutableDictionary&& other) noexcept = default;
MutableDictionary::~MutableDictionary() = default;

std::size_t MutableDictionary::size() const {
    return values_.size();
}

bool MutableDictionary::empty() const {
    return values_.empty();
}

const Value* MutableDictionary::find(std::string_view key) const noexcept {
    const std::size_t index = keys_ ? keys_->find(key) : KeySet::notFound;
    return index == KeySet::notFound ? nullptr : &values_[index];
}

DictionaryIterator MutableDictionary::begin() const {
    return {keys_.get(), values_.data(), 0};
}

DictionaryIterator MutableDictionary::end() const {
    return {keys_.get(), values_.data(), values_.size()};
}

void MutableDictionary::set(std::string_view key, Value value) {
    if (!keys_)
        keys_ = KeySet::create();
    std::size_t index = keys_->find(key);
    if (index != KeySet::notFound) {
        values_[index] = std::move(value);
        return;
    }
    // Room first, so that nothing can fail once the key is in.
    if (values_.size() == values_.capacity())
        values_.reserve(std::max<std::size_t>(8, 2 * values_.size()));
    if (!keys_->hasSingleOwner())
        keys_ = keys_->clone();
    keys_->add(key);
    values_.push_back(std::move(value));
}

void MutableDictionary::set(std::string_view key, const Value* valueOrNil) {
    if (!valueOrNil)
        throw NSException(NSInvalidArgumentException, "object cannot be nil (key: " + std::string(key) + ")");
    set(key, *valueOrNil);
}

void MutableDictionary::remove(std::string_view key) {
    const std::size_t index = keys_ ? keys_->find(key) : KeySet::notFound;
    if (index == KeySet::notFound)
        return;
    keys_ = keys_->clone(index);
    values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(index));
}

Dictionary MutableDictionary::copy() const {
    std::vector<Value> values = values_;
    return Dictionary(ContainerBlock::create(values.data(), values.size(), keys_));
}

} // namespace platform
