#pragma once

#include "platform/values/Value.h"

#include <systemd/sd-bus.h>

#include <cstddef>
#include <string_view>

namespace platform::notifications {

/// Appends values to a message in the form of NotificationFormat.h. After a failure the message is unusable.
/// The depth of the value does not affect the depth of recursion.
class UserInfoWriter {
public:
    explicit UserInfoWriter(sd_bus_message* message) : message_(message) {}

    /// Returns false when the value is too large or too deep, or memory ran out.
    bool write(const Dictionary& userInfo);
    /// Returns the written bytes, estimated from above.
    std::size_t bytes() const { return bytes_; }

private:
    bool writeValue(const Value& value, int level);
    bool writeScalar(const Value& value);
    bool writeText(std::string_view text);
    bool writeArray(const Array& array, int level);
    bool writeDictionary(const Dictionary& dictionary, int level);
    bool writeFlattened(const Value& value, int level);
    bool writeToken(const Value& value);
    bool writeBytes(std::string_view bytes);
    bool open(char type, const char* contents);
    bool close();
    bool appendBasic(char type, const void* value);
    bool account();

    sd_bus_message* message_;
    std::size_t values_ = 0;
    std::size_t bytes_ = 0;
};

} // namespace platform::notifications
