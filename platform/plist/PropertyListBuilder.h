#pragma once

#include "platform/plist/DictionaryBuilder.h"
#include "platform/plist/DocumentShape.h"
#include "platform/plist/ScratchMemory.h"
#include "platform/plist/StringPool.h"
#include "platform/values/Arena.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <memory_resource>
#include <optional>
#include <span>
#include <string_view>
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
    bool isInArray() const { return !frames_.empty() && frames_.back().kind == Container::Array; }

    bool open(Container kind);
    /// Closes the innermost container. Returns false unless it is of that kind and, for a dictionary, has a
    /// value for each key.
    bool close(Container kind);

    /// `leadIn` is the document's text from the end of the element before to the value of this key, the key
    /// included; empty where it is not known. Both texts must stay valid until take().
    bool addKey(std::string_view key, std::string_view leadIn);
    /// Returns the lead-ins that the keys to come have when the innermost dictionary continues as the last
    /// one of its depth did.
    std::span<const std::string_view> expectedLeadIns() const;
    /// Adds the key of the first expected lead-in, where that text was found again.
    void addExpectedKey() { ++frames_.back().keyCount; }

    bool add(ArenaValue value) {
        if (!mayAdd())
            return false;
        values_.push_back(value);
        return true;
    }
    /// Adds an element to an array, or the value of the key that was just added.
    void addAllowed(ArenaValue value) { values_.push_back(value); }

    ArenaValue string(std::string_view text) { return strings_.string(text); }
    ArenaValue data(std::string_view bytes) { return {Value::Kind::Data, arena_->bytes(bytes)}; }

    /// Returns the one value that was built; nothing while a container is open. The next builder expects a
    /// document of the same shape.
    std::optional<Value> take();

private:
    struct Frame {
        Container kind;
        /// The dictionary has had the keys of the last one of its depth so far; then they are only counted,
        /// not kept.
        bool asExpected;
        std::size_t firstValue;
        std::size_t firstKey;
        /// For a <plist>, the number of its values, which is 1.
        std::size_t keyCount;
    };
    /// The last dictionary of a depth, and the text in front of each of its values.
    struct LastDictionary {
        KeySet* keys;
        std::pmr::vector<std::string_view> leadIns;
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
    LastDictionary& last() { return last_[depth() - 1]; }
    ArenaValue closedDictionary(Frame& frame);
    void spellOutKeys(Frame& frame);

    void rememberShape() const;

    ScratchMemory scratch_;
    std::shared_ptr<const DocumentShape> shape_ = DocumentShape::latest();
    /// The document has keys, or texts in front of its values, that the shape does not have.
    bool differs_ = false;
    IntrusivePointer<Arena> arena_;
    DictionaryBuilder dictionaries_;
    StringPool strings_;
    std::pmr::vector<Frame> frames_{scratch_.get()};
    /// The elements of all open containers, and the keys that differed from the expected ones.
    std::pmr::vector<ArenaValue> values_{scratch_.get()};
    std::pmr::vector<std::string_view> keys_{scratch_.get()};
    /// Indexed by depth.
    std::pmr::vector<LastDictionary> last_{scratch_.get()};
};

} // namespace platform
