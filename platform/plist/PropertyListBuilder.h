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

/// Builds a value from an XML document's elements in their order. A function that returns false has received
/// an element where it is not allowed.
class PropertyListBuilder {
public:
    /// An element with a start and an end tag and values between. A <plist> contains exactly one value.
    enum class Container : std::uint8_t { Array, Dictionary, PropertyList };

    /// `documentSize` is in bytes.
    explicit PropertyListBuilder(std::size_t documentSize);

    /// Returns the number of open containers.
    std::size_t depth() const { return frames_.size(); }

    bool open(Container kind);
    /// Closes the innermost container. Returns false unless it is of that kind and, for a dictionary, has a
    /// value for each key.
    bool close(Container kind);

    /// Returns the key that the last dictionary of this depth had at this position. Returns an empty text
    /// unless a key is allowed here and that one is written in XML as it is.
    std::string_view expectedKey() const {
        return mayAddKey() && frames_.back().spelledPlainly ? frames_.back().expectedKey()
                                                            : std::string_view();
    }
    /// Takes the key that expectedKey() returned.
    void addExpectedKey() { ++frames_.back().keyCount; }
    /// `text` must stay valid until take().
    bool addKey(std::string_view key);

    template <class Content>
    bool add(Content&& content) {
        if (!mayAdd())
            return false;
        values_.emplace_back(std::forward<Content>(content));
        return true;
    }
    bool addString(std::string_view text);

    /// Returns the one value that was built; nothing while a container is open.
    std::optional<Value> take();

private:
    struct Frame {
        Container kind;
        bool spelledPlainly;
        std::size_t firstValue;
        std::size_t firstKey;
        /// For a <plist>, the number of its values, which is 1.
        std::size_t keyCount;
        /// The keys of the last dictionary of this depth, as long as this one's are equal; then they are only
        /// counted, not kept.
        const KeySet* expected;

        /// Returns an empty text when there is none.
        std::string_view expectedKey() const {
            return expected && keyCount < expected->size() ? (*expected)[keyCount] : std::string_view();
        }
    };
    struct LastKeys {
        IntrusivePointer<KeySet> keys;
        /// Whether XML writes every key without escapes.
        bool spelledPlainly = false;
    };

    /// Returns whether a value is allowed here: anywhere in an array, after a key in a dictionary, once in a
    /// <plist> and at the top.
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
    /// The elements of all open containers, and the keys that differed from the expected ones.
    std::vector<Value> values_;
    std::vector<std::string_view> keys_;
    /// Indexed by depth.
    std::vector<LastKeys> last_;
};

} // namespace platform
