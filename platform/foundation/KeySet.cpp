#include "platform/foundation/KeySet.h"

#include "platform/foundation/ShortText.h"

#include <bit>

namespace platform {

namespace {

/// Beyond this many keys the hash index, whose worst case is a walk over all of them, gives way to the sorted
/// one.
constexpr std::size_t largestHashed = 64;

} // namespace

Reference<KeySet> KeySet::create(std::size_t keys, std::size_t text) {
    auto set = Reference<KeySet>::adopt(new KeySet);
    set->spans_.reserve(keys);
    set->text_.reserve(text);
    if (keys > 0 && keys <= largestHashed)
        set->resizeSlots(keys);
    return set;
}

Reference<KeySet> KeySet::clone(std::size_t without) const {
    auto copy = create(size() + 1, text_.size());
    for (std::size_t place = 0; place < size(); ++place)
        if (place != without)
            copy->append((*this)[place]);
    return copy;
}

std::size_t KeySet::find(std::string_view key) const noexcept {
    if (sorted_) {
        const auto found = sorted_->find(key);
        return found == sorted_->end() ? notFound : *found;
    }
    if (slots_.empty())
        return notFound;
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = textHash(key) & mask; slots_[slot] != 0; slot = (slot + 1) & mask) {
        const std::size_t place = slots_[slot] - 1u;
        if (sameShortText((*this)[place], key))
            return place;
    }
    return notFound;
}

std::size_t KeySet::add(std::string_view key) {
    const std::size_t place = find(key);
    if (place != notFound)
        return place;
    append(key);
    return size() - 1;
}

void KeySet::append(std::string_view key) {
    spans_.push_back({text_.size(), key.size()});
    text_.append(key);
    index(static_cast<std::uint32_t>(size() - 1));
}

void KeySet::index(std::uint32_t place) {
    if (sorted_) {
        sorted_->insert(place);
    } else if (size() > largestHashed) {
        sortKeys();
    } else if (size() * 2 > slots_.size()) {
        resizeSlots(size());
        for (std::uint32_t each = 0; each < size(); ++each)
            hashInto(each);
    } else {
        hashInto(place);
    }
}

void KeySet::hashInto(std::uint32_t place) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = textHash((*this)[place]) & mask;
    while (slots_[slot] != 0)
        slot = (slot + 1) & mask;
    slots_[slot] = static_cast<std::uint8_t>(place + 1);
}

void KeySet::resizeSlots(std::size_t keys) {
    slots_.assign(std::bit_ceil(keys * 2), 0);
}

void KeySet::sortKeys() {
    slots_.clear();
    sorted_ = std::make_unique<SortedIndex>(ByText{this});
    for (std::uint32_t place = 0; place < size(); ++place)
        sorted_->insert(place);
}

} // namespace platform
