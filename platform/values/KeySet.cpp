#include "platform/values/KeySet.h"

#include "platform/values/ShortString.h"

#include <bit>

namespace platform {

IntrusivePointer<KeySet> KeySet::create(std::size_t keys, std::size_t text) {
    auto set = IntrusivePointer<KeySet>::adopt(new KeySet);
    set->spans_.reserve(keys);
    set->text_.reserve(text);
    if (keys * 2 > set->slotCount_ && keys <= largestHashed)
        set->slotCount_ = static_cast<std::uint32_t>(std::bit_ceil(keys * 2));
    return set;
}

IntrusivePointer<KeySet> KeySet::clone(std::size_t without) const {
    auto copy = create(size() + 1, text_.size());
    for (std::size_t index = 0; index < size(); ++index)
        if (index != without)
            copy->add((*this)[index]);
    return copy;
}

std::size_t KeySet::find(std::string_view key) const noexcept {
    if (!index_)
        return slots_[slotOf(key)] - std::size_t(1);
    return findInIndex(key, KeyIndex::hashOf(key));
}

std::size_t KeySet::findInIndex(std::string_view key, std::uint32_t hash) const {
    return index_->find(hash, [&](std::size_t index) { return (*this)[index] == key; });
}

/// Returns the slot of the key, or the free slot that it would take.
std::size_t KeySet::slotOf(std::string_view key) const {
    const std::size_t mask = slotCount_ - 1;
    std::size_t slot = hashShortString(key) & mask;
    while (slots_[slot] != 0 && !equalShortStrings((*this)[slots_[slot] - 1u], key))
        slot = (slot + 1) & mask;
    return slot;
}

std::size_t KeySet::add(std::string_view key) {
    if (!index_ && size() == largestHashed)
        makeIndex();
    if (index_) {
        const std::uint32_t hash = KeyIndex::hashOf(key);
        const std::size_t index = findInIndex(key, hash);
        if (index != notFound)
            return index;
        append(key);
        index_->add(hash, size() - 1);
        return size() - 1;
    }
    if (size() * 2 == slotCount_)
        useSlots(std::size_t(2) * slotCount_);
    std::uint8_t& slot = slots_[slotOf(key)];
    if (slot == 0) {
        append(key);
        slot = static_cast<std::uint8_t>(size());
    }
    return slot - std::size_t(1);
}

void KeySet::append(std::string_view key) {
    spans_.push_back({text_.size(), key.size()});
    text_.append(key);
}

void KeySet::useSlots(std::size_t count) {
    slotCount_ = static_cast<std::uint32_t>(count);
    slots_.fill(0);
    for (std::size_t index = 0; index < size(); ++index)
        slots_[slotOf((*this)[index])] = static_cast<std::uint8_t>(index + 1);
}

void KeySet::makeIndex() {
    index_ = std::make_unique<KeyIndex>(spans_.capacity());
    for (std::size_t index = 0; index < size(); ++index)
        index_->add(KeyIndex::hashOf((*this)[index]), index);
}

} // namespace platform
