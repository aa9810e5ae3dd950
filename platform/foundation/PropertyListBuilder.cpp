#include "platform/foundation/PropertyListBuilder.h"

#include "platform/foundation/ShortText.h"

namespace platform {

PropertyListBuilder::PropertyListBuilder(std::size_t documentSize)
    : dictionaries_(Duplicates::KeepLast), strings_(documentSize) {}

bool PropertyListBuilder::open(Value::Kind kind) {
    if (!mayAdd() || depth() == deepestNesting)
        return false;
    if (lastKeys_.size() == depth())
        lastKeys_.emplace_back();
    KeySet* expected = kind == Value::Kind::Dictionary ? lastKeys_[depth()].get() : nullptr;
    frames_.push_back({kind, values_.size(), keys_.size(), 0, expected});
    return true;
}

bool PropertyListBuilder::close(Value::Kind kind) {
    if (frames_.empty() || frames_.back().kind != kind)
        return false;
    Frame frame = frames_.back();
    if (kind == Value::Kind::Dictionary && frame.keyCount != valueCount(frame))
        return false;
    Value* const first = values_.data() + frame.firstValue;
    Value closed = kind == Value::Kind::Array ? Value(Array(ContainerBlock::create(first, valueCount(frame))))
                                              : Value(closedDictionary(frame));
    frames_.pop_back();
    values_.erase(values_.begin() + static_cast<std::ptrdiff_t>(frame.firstValue), values_.end());
    keys_.resize(frame.firstKey);
    values_.push_back(std::move(closed));
    return true;
}

Dictionary PropertyListBuilder::closedDictionary(Frame& frame) {
    Value* const values = values_.data() + frame.firstValue;
    if (frame.expected && frame.keyCount == frame.expected->size())
        return Dictionary(ContainerBlock::create(values, frame.keyCount, lastKeys_[depth() - 1]));
    spellOutKeys(frame);
    Dictionary dictionary = dictionaries_.make({keys_.data() + frame.firstKey, frame.keyCount}, values);
    if (!dictionary.empty())
        lastKeys_[depth() - 1] = dictionary.keys();
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
                          sameShortText((*frame.expected)[frame.keyCount], key);
    if (!expected) {
        spellOutKeys(frame);
        keys_.push_back(key);
    }
    ++frame.keyCount;
    return true;
}

bool PropertyListBuilder::add(Value value) {
    if (!mayAdd())
        return false;
    values_.push_back(std::move(value));
    return true;
}

bool PropertyListBuilder::addString(std::string_view text) {
    if (!mayAdd())
        return false;
    values_.push_back(strings_.string(text));
    return true;
}

bool PropertyListBuilder::mayAdd() const {
    if (frames_.empty())
        return values_.empty();
    const Frame& frame = frames_.back();
    return frame.kind == Value::Kind::Array || valueCount(frame) < frame.keyCount;
}

bool PropertyListBuilder::mayAddKey() const {
    if (frames_.empty())
        return false;
    const Frame& frame = frames_.back();
    return frame.kind == Value::Kind::Dictionary && valueCount(frame) == frame.keyCount;
}

std::optional<Value> PropertyListBuilder::take() {
    if (!frames_.empty() || values_.empty())
        return std::nullopt;
    return std::move(values_.front());
}

} // namespace platform
