#include "platform/plist/DictionaryBuilder.h"

#include "platform/values/ShortString.h"

#include <algorithm>

namespace platform {

namespace {

bool hasKeys(const KeySet& set, std::span<const std::string_view> keys) {
    if (set.size() != keys.size())
        return false;
    for (std::size_t i = 0; i < keys.size(); ++i)
        if (!equalShortStrings(set[i], keys[i]))
            return false;
    return true;
}

} // namespace

DictionaryBuilder::DictionaryBuilder(Arena& arena, Duplicates duplicates, const DocumentShape& shape)
    : arena_(arena), duplicates_(duplicates) {
    static_assert(DocumentShape::mostLevels < std::tuple_size_v<decltype(recent_)>);
    auto next = recent_.begin();
    for (const DocumentShape::Level& level : shape.levels()) {
        if (!level.keys)
            continue;
        *next++ = level.keys.get();
        arena_.keep(level.keys);
    }
}

ArenaValue DictionaryBuilder::make(std::span<const std::string_view> keys, ArenaValue* values) {
    if (keys.empty())
        return {Value::Kind::Dictionary, static_cast<ContainerBlock*>(nullptr)};
    // The set that was found, the first free element, or the oldest set, which makes room.
    const auto place = std::find_if(recent_.begin(), recent_.end() - 1,
                                    [&](const KeySet* set) { return !set || hasKeys(*set, keys); });
    KeySet* set = *place;
    if (!set || !hasKeys(*set, keys))
        set = newSet(keys, values);
    *place = set;
    std::rotate(recent_.begin(), place, place + 1);
    return arena_.dictionary(*set, values);
}

/// Creates the key set and keeps one value per key in `values`.
KeySet* DictionaryBuilder::newSet(std::span<const std::string_view> keys, ArenaValue* values) {
    std::size_t text = 0;
    for (const std::string_view key : keys)
        text += key.size();
    auto set = KeySet::create(keys.size(), text);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::size_t before = set->size();
        const std::size_t index = set->add(keys[i]);
        if (index == before || duplicates_ == Duplicates::KeepLast)
            values[index] = values[i];
    }
    KeySet* const kept = set.get();
    arena_.keep(std::move(set));
    return kept;
}

} // namespace platform
