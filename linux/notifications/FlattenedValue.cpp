#include "linux/notifications/FlattenedValue.h"

#include <utility>

namespace platform::notifications {

bool FlattenedValue::add(Value value) {
    if (!put(std::move(value)))
        return false;
    closeFilled();
    return true;
}

bool FlattenedValue::beginArray(std::uint32_t count) {
    if (!takesContainer())
        return false;
    // A declared count is not trusted: elements take memory only when they arrive.
    open_.emplace_back(OpenArray{count, {}});
    closeFilled();
    return true;
}

bool FlattenedValue::beginDictionary(std::uint32_t count) {
    if (!takesContainer())
        return false;
    open_.emplace_back(OpenDictionary{count, std::make_unique<Entries>()});
    closeFilled();
    return true;
}

/// Returns whether a container may come next, and not a key, the end, or no further level.
bool FlattenedValue::takesContainer() const {
    if (value_ || open_.size() >= levels_)
        return false;
    if (open_.empty())
        return true;
    const auto* dictionary = std::get_if<OpenDictionary>(&open_.back());
    return !dictionary || dictionary->entries->key.has_value();
}

bool FlattenedValue::put(Value value) {
    if (value_)
        return false;
    if (open_.empty()) {
        value_ = std::move(value);
        return true;
    }
    if (auto* array = std::get_if<OpenArray>(&open_.back())) {
        array->elements.push_back(std::move(value));
        --array->missing;
        return true;
    }
    auto& dictionary = std::get<OpenDictionary>(open_.back());
    Entries& entries = *dictionary.entries;
    if (!entries.key) {
        if (!value.is(Value::Kind::String))
            return false;
        entries.key = value.string();
        return true;
    }
    entries.dictionary.set(*entries.key, std::move(value));
    entries.key.reset();
    --dictionary.missing;
    return true;
}

/// Closes every innermost container that has all its elements; a completed container is the next one's
/// element.
void FlattenedValue::closeFilled() {
    while (!open_.empty()) {
        std::optional<Value> filled;
        if (auto* array = std::get_if<OpenArray>(&open_.back())) {
            if (array->missing == 0)
                filled = Array(std::move(array->elements));
        } else if (auto& dictionary = std::get<OpenDictionary>(open_.back()); dictionary.missing == 0) {
            filled = dictionary.entries->dictionary.copy();
        }
        if (!filled)
            return;
        open_.pop_back();
        put(*std::move(filled));
    }
}

} // namespace platform::notifications
