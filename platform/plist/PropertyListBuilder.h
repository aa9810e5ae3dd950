#pragma once

#include "platform/plist/DictionaryBuilder.h"
#include "platform/plist/StringPool.h"
#include "platform/values/Value.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace platform {

/// Builds a value from an XML document's elements in the order in which they stand there. A function that
/// answers false has met an element where it may not stand.
class PropertyListBuilder {
public:
    /// What has a start and an end tag and values between. A <plist> is the one value that stands in it.
    enum class Container : std::uint8_t { Array, Dictionary, PropertyList };

    /// `documentSize` in bytes.
    explicit PropertyListBuilder(std::size_t documentSize);

    /// How many containers are open.
    std::size_t depth() const { return frames_.size(); }

    bool open(Container kind);
    /// Closes the innermost container, which must be of that kind and, for a dictionary, have a value for
    /// each key.
    bool close(Container kind);

    /// The key that the last dictionary of this depth had in this place, if a key may stand here and that one
    /// is written in XML as it is; else empty.
    std::string_view expectedKey() const {
        return mayAddKey() && frames_.back().spelledPlainly ? frames_.back().expectedKey()
                                                            : std::string_view();
    }
    /// Takes the key that expectedKey() answered.
    void addExpectedKey() { ++frames_.back().keyCount; }
    /// The text must stay where it is until the value is taken.
    bool addKey(std::string_view key);

    template <class Content>
    bool add(Content&& content) {
        if (!mayAdd())
            return false;
        values_.emplace_back(std::forward<Content>(content));
        return true;
    }
    bool addString(std::string_view text);

    /// The one value that was built, once no container is open.
    std::optional<Value> take();

private:
    struct Frame {
        Container kind;
        bool spelledPlainly;
        std::size_t firstValue;
        std::size_t firstKey;
        /// Of a <plist> the number of its values, which is 1.
        std::size_t keyCount;
        /// The keys of the last dictionary of this depth, as long as this one's are the same; then only they
        /// are counted, not kept.
        const KeySet* expected;

        /// Empty when there is none.
        std::string_view expectedKey() const {
            return expected && keyCount < expected->size() ? (*expected)[keyCount] : std::string_view();
        }
    };
    struct LastKeys {
        IntrusivePointer<KeySet> keys;
        /// Whether no key has characters that XML writes otherwise.
        bool spelledPlainly = false;
    };

    /// Whether a value may stand here: anywhere in an array, after a key in a dictionary, once in a <plist>
    /// and on the outside.
    bool mayAdd() const {
        if (frames_.empty())
            return values_.empty();
        const Frame& frame = frames_.back();
        return frame.kind == Container::Array || valueCount(frame) < frame.keyCount;
    }
    bool mayAddKey() const {
        if (frames_.empty())
            return false;
        const Frame& frame = frames_.back();
        return frame.kind == Container::Dictionary && valueCount(frame) == frame.keyCount;
    }
    std::size_t valueCount(const Frame& frame) const { return values_.size() - frame.firstValue; }
    Dictionary closedDictionary(Frame& frame);
    void spellOutKeys(Frame& frame);

    DictionaryBuilder dictionaries_;
    StringPool strings_;
    std::vector<Frame> frames_;
    /// The elements of all open containers, and the keys that were not as expected.
    std::vector<Value> values_;
    std::vector<std::string_view> keys_;
    /// By depth.
    std::vector<LastKeys> last_;
};

} // namespace platform
