#include "platform/plist/PropertyListBuilder.h"

#include "platform/plist/PropertyListBounds.h"
#include "platform/values/KeySet.h"
#include "platform/values/ShortString.h"

namespace platform {

PropertyListBuilder::PropertyListBuilder(std::size_t documentSize)
    : dictionaries_(Duplicates::KeepLast), strings_(documentSize) {
    // Enough for a document of one record.
    frames_.reserve(4);
    last_.reserve(4);
    values_.reserve(32);
    keys_.reserve(32);
}

bool PropertyListBuilder::open(Container kind) {
    if (!mayAdd() || depth() == deepestPropertyList)
        return false;
    if (last_.size() == depth())
        last_.emplace_back();
    const LastKeys& last = last_[depth()];
    const KeySet* expected = kind == Container::Dictionary ? last.keys.get() : nullptr;
    const std::size_t keys = kind == Container::PropertyList ? 1 : 0;
    frames_.push_back({kind, last.spelledPlainly, values_.size(), keys_.size(), keys, expected});
    return true;
}

bool PropertyListBuilder::close(Container kind) {
    if (frames_.empty() || frames_.back().kind != kind)
        return false;
    Frame& frame = frames_.back();
    const std::size_t count = valueCount(frame);
    if (kind != Container::Array && frame.keyCount != count)
        return false;
    if (kind == Container::PropertyList) {
        // Its value has its position already: it is the outer container's next one.
        frames_.pop_back();
        return true;
    }
    Value* const first = values_.data() + frame.firstValue;
    Value closed = kind == Container::Array ? Value(Array(ContainerBlock::create(first, count)))
                                            : Value(closedDictionary(frame));
    values_.erase(values_.end() - static_cast<std::ptrdiff_t>(count), values_.end());
    keys_.resize(frame.firstKey);
    frames_.pop_back();
    values_.push_back(std::move(closed));
    return true;
}

Dictionary PropertyListBuilder::closedDictionary(Frame& frame) {
    Value* const values = values_.data() + frame.firstValue;
    LastKeys& last = last_[depth() - 1];
    if (frame.expected && frame.keyCount == frame.expected->size())
        return Dictionary(ContainerBlock::create(values, frame.keyCount, last.keys));
    spellOutKeys(frame);
    Dictionary dictionary = dictionaries_.make({keys_.data() + frame.firstKey, frame.keyCount}, values);
    if (!dictionary.empty()) {
        last.keys = dictionary.keys();
        const std::string_view text = last.keys->text();
        last.spelledPlainly =
            text.find('&') == std::string_view::npos && text.find('<') == std::string_view::npos;
    }
    return dictionary;
}

void PropertyListBuilder::spellOutKeys(Frame& frame) {
    if (!frame.expected)
        return;
    for (std::size_t i = 0; i < frame.keyCount; ++i)
        keys_.push_back((*frame.expected)[i]);
    frame.expected = nullptr;
}

bool PropertyListBuilder::addKey(std::string_view key) {
    if (!mayAddKey())
        return false;
    Frame& frame = frames_.back();
    const bool expected = frame.expected && frame.keyCount < frame.expected->size() &&
                          equalShortStrings((*frame.expected)[frame.keyCount], key);
    if (!expected) {
        spellOutKeys(frame);
        keys_.push_back(key);
    }
    ++frame.keyCount;
    return true;
}

bool PropertyListBuilder::addString(std::string_view text) {
    return add(strings_.string(text));
}

std::optional<Value> PropertyListBuilder::take() {
    if (!frames_.empty() || values_.empty())
        return std::nullopt;
    return std::move(values_.front());
}

} // namespace platform
