#include "platform/plist/DictionaryBuilder.h"

#include <algorithm>

namespace platform {

namespace {

bool hasKeys(const KeySet& set, std::span<const std::string_view> keys) {
    if (set.size() != keys.size())
        return false;
    for (std::size_t i = 0; i < keys.size(); ++i)
        if (set[i] != keys[i])
            return false;
    return true;
}

/// Returns null when a key occurs twice.
IntrusivePointer<KeySet> newSet(std::span<const std::string_view> keys) {
    std::size_t text = 0;
    for (const std::string_view key : keys)
        text += key.size();
    auto set = KeySet::create(keys.size(), text);
    for (std::size_t i = 0; i < keys.size(); ++i)
        if (set->add(keys[i]) != i)
            return {};
    return set;
}

} // namespace

Dictionary DictionaryBuilder::make(std::span<const std::string_view> keys, Value* values) {
    auto set = recentSet(keys);
    if (!set)
        return withDuplicates(keys, values);
    return Dictionary(ContainerBlock::create(values, keys.size(), std::move(set)));
}

IntrusivePointer<KeySet> DictionaryBuilder::recentSet(std::span<const std::string_view> keys) {
    // The set that was found, the first free element, or the oldest set, which makes room.
    auto place = std::find_if(recent_.begin(), recent_.end() - 1,
                              [&](const auto& set) { return !set || hasKeys(*set, keys); });
    if (!*place || !hasKeys(**place, keys)) {
        auto set = newSet(keys);
        if (!set)
            return {};
        *place = std::move(set);
    }
    std::rotate(recent_.begin(), place, place + 1);
    return recent_.front();
}

Dictionary DictionaryBuilder::withDuplicates(std::span<const std::string_view> keys, Value* values) const {
    MutableDictionary dictionary;
    for (std::size_t i = 0; i < keys.size(); ++i)
        if (duplicates_ == Duplicates::KeepLast || !dictionary.find(keys[i]))
            dictionary.set(keys[i], std::move(values[i]));
    return dictionary.copy();
}

} // namespace platform
