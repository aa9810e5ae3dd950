#pragma once

#include "platform/values/Value.h"

#include <systemd/sd-bus.h>

#include <cstddef>
#include <optional>
#include <string_view>

namespace platform::notifications {

class FlattenedValue;

/// Reads values from a message in the form of NotificationFormat.h. Any program on the bus may have sent it:
/// the reader takes bounded memory and stack for any content. It returns nothing for another form and for a
/// value that is nested more deeply than a property list.
class UserInfoReader {
public:
    explicit UserInfoReader(sd_bus_message* message) : message_(message) {}

    /// Reads the next variant, which must be a dictionary.
    std::optional<Dictionary> read();

private:
    std::optional<Value> readVariant(int level);
    std::optional<Value> readContents(std::string_view signature, int level);
    std::optional<Value> readArray(int level);
    std::optional<Value> readDictionary(int level);
    std::optional<Value> readFlattened(int level);
    bool readToken(FlattenedValue& assembled);
    std::optional<Value> readNumber(char type);
    std::optional<Value> readText();
    std::optional<Value> readBytes(Value::Kind kind);
    bool account();

    sd_bus_message* message_;
    std::size_t values_ = 0;
};

} // namespace platform::notifications
