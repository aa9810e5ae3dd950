#include "platform/plist/PropertyListBuilder.h"

#include "platform/plist/PropertyListBounds.h"
#include "platform/values/ShortString.h"

#include <algorithm>

namespace platform {

namespace {

/// Room that is made at first: enough for a record.
constexpr std::size_t typicalKeys = 32;
constexpr std::size_t typicalDepth = 4;
/// The bytes of a document in which one more element may wait for the end of its container. Growing leaves
/// the smaller pieces in the scratch memory; memory that is never used costs nothing.
constexpr std::size_t bytesPerWaiting = 64;

} // namespace

PropertyListBuilder::PropertyListBuilder(std::size_t documentSize)
    : arena_(Arena::create(documentSize)), dictionaries_(*arena_, Duplicates::KeepLast, *shape_),
      strings_(*arena_, documentSize, scratch_.get()) {
    frames_.reserve(typicalDepth);
    last_.reserve(typicalDepth);
    values_.reserve(std::max(typicalKeys, documentSize / bytesPerWaiting));
    keys_.reserve(typicalKeys);
    for (const auto& [keys, leadIns, run] : shape_->levels())
        last_.push_back({keys.get(), {leadIns.begin(), leadIns.end(), scratch_.get()}});
}

bool PropertyListBuilder::open(Container kind) {
    if (!mayAdd() || depth() == deepestPropertyList)
        return false;
    if (last_.size() == depth())
        last_.push_back({nullptr, std::pmr::vector<std::string_view>(scratch_.get())});
    const bool asExpected = kind == Container::Dictionary && last_[depth()].keys;
    const std::size_t keys = kind == Container::PropertyList ? 1 : 0;
    frames_.push_back({kind, asExpected, values_.size(), keys_.size(), keys});
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
    const ArenaValue* const first = values_.data() + frame.firstValue;
    const ArenaValue closed =
        kind == Container::Array ? arena_->array(first, count) : closedDictionary(frame);
    values_.resize(frame.firstValue, closed);
    keys_.resize(frame.firstKey);
    frames_.pop_back();
    values_.push_back(closed);
    return true;
}

ArenaValue PropertyListBuilder::closedDictionary(Frame& frame) {
    ArenaValue* const values = values_.data() + frame.firstValue;
    if (frame.asExpected && frame.keyCount == last().keys->size())
        return arena_->dictionary(*last().keys, values);
    spellOutKeys(frame);
    const ArenaValue closed = dictionaries_.make({keys_.data() + frame.firstKey, frame.keyCount}, values);
    const Dictionary& dictionary = closed.value().dictionary();
    // Where a key came twice, the lead-ins are not those of the dictionary's keys.
    if (frame.keyCount > 0)
        last().keys = dictionary.size() == frame.keyCount ? dictionary.keys() : nullptr;
    return closed;
}

void PropertyListBuilder::spellOutKeys(Frame& frame) {
    if (!frame.asExpected)
        return;
    for (std::size_t i = 0; i < frame.keyCount; ++i)
        keys_.push_back((*last().keys)[i]);
    frame.asExpected = false;
}

bool PropertyListBuilder::addKey(std::string_view key, std::string_view leadIn) {
    if (!mayAddKey())
        return false;
    differs_ = true;
    Frame& frame = frames_.back();
    LastDictionary& before = last();
    if (!frame.asExpected || frame.keyCount >= before.keys->size() ||
        !equalShortStrings((*before.keys)[frame.keyCount], key)) {
        spellOutKeys(frame);
        keys_.push_back(key);
    }
    if (before.leadIns.empty())
        before.leadIns.reserve(typicalKeys);
    if (before.leadIns.size() == frame.keyCount)
        before.leadIns.push_back(leadIn);
    else
        before.leadIns[frame.keyCount] = leadIn;
    ++frame.keyCount;
    return true;
}

std::span<const std::string_view> PropertyListBuilder::expectedLeadIns() const {
    if (!mayAddKey() || !frames_.back().asExpected)
        return {};
    const LastDictionary& before = last_[depth() - 1];
    const std::size_t next = frames_.back().keyCount;
    return std::span(before.leadIns).subspan(next, before.keys->size() - next);
}

std::optional<Value> PropertyListBuilder::take() {
    if (!frames_.empty() || values_.empty())
        return std::nullopt;
    if (differs_)
        rememberShape();
    return values_.front().value();
}

void PropertyListBuilder::rememberShape() const {
    std::vector<DocumentShape::Level> levels;
    for (const LastDictionary& last : last_) {
        if (levels.size() == DocumentShape::mostLevels)
            break;
        levels.push_back(
            {IntrusivePointer<KeySet>::share(last.keys), {last.leadIns.begin(), last.leadIns.end()}, {}});
    }
    DocumentShape::remember(std::make_shared<DocumentShape>(levels));
}

} // namespace platform
