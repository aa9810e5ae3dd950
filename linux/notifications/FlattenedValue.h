#pragma once

#include "platform/values/MutableDictionary.h"
#include "platform/values/Value.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace platform::notifications {

/// Assembles a value from its parts in the order of reading. A container begins with the number of its
/// elements or entries, which follow; an entry is its key, a string, and its value. Each step returns false
/// where it is not allowed; the value is then unusable.
class FlattenedValue {
public:
    /// `levels` bounds the containers inside each other.
    explicit FlattenedValue(std::size_t levels) : levels_(levels) {}

    bool add(Value value);
    bool beginArray(std::uint32_t count);
    bool beginDictionary(std::uint32_t count);

    bool isComplete() const { return value_.has_value(); }
    /// Returns the complete value. Call it once.
    Value take() { return *std::move(value_); }

private:
    struct OpenArray {
        std::uint32_t missing;
        std::vector<Value> elements;
    };
    struct Entries {
        MutableDictionary dictionary;
        std::optional<std::string> key;
    };
    struct OpenDictionary {
        std::uint32_t missing;
        std::unique_ptr<Entries> entries;
    };
    using OpenContainer = std::variant<OpenArray, OpenDictionary>;

    bool takesContainer() const;
    bool put(Value value);
    void closeFilled();

    std::size_t levels_;
    std::vector<OpenContainer> open_;
    std::optional<Value> value_;
};

} // namespace platform::notifications
