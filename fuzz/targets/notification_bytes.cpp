// The reader of notifications, on any bytes that arrive as the body of a signal. The first byte chooses its
// signature: the one of notifications or, after it, any other.

#include "fuzz/BusPair.h"
#include "fuzz/NotificationCheck.h"
#include "fuzz/Plan.h"
#include "linux/notifications/NotificationFormat.h"

#include <cstdint>
#include <memory>
#include <string>

namespace {

using wardlock::fuzz::BusPair;

void append(std::string& message, std::uint32_t number) {
    for (int shift = 0; shift < 32; shift += 8)
        message += static_cast<char>(number >> shift);
}

void align(std::string& message, std::size_t boundary) {
    message.resize((message.size() + boundary - 1) / boundary * boundary);
}

void appendText(std::string& message, std::string_view text) {
    append(message, static_cast<std::uint32_t>(text.size()));
    message.append(text).push_back('\0');
}

/// Appends a header field: its code, and a variant of the one-letter type.
void appendField(std::string& fields, char code, char type, std::string_view text) {
    align(fields, 8);
    fields += {code, 1, type, 0};
    if (type == 'g') {
        fields += static_cast<char>(text.size());
        fields.append(text).push_back('\0');
    } else {
        appendText(fields, text);
    }
}

/// Returns the little-endian wire form of a signal.
std::string signalMessage(std::string_view signature, std::string_view body) {
    namespace format = platform::notifications::format;
    // Aligned as if after the sixteen bytes that precede them, which align as well.
    std::string fields;
    appendField(fields, 1, 'o', format::path);
    appendField(fields, 2, 's', format::interface);
    appendField(fields, 3, 's', format::member);
    appendField(fields, 7, 's', ":1.7");
    if (!signature.empty())
        appendField(fields, 8, 'g', signature);
    std::string message{'l', 4, 1, 1};
    append(message, static_cast<std::uint32_t>(body.size()));
    append(message, 1);
    append(message, static_cast<std::uint32_t>(fields.size()));
    message += fields;
    align(message, 8);
    return message.append(body);
}

std::unique_ptr<BusPair> pair;

int arrived(sd_bus_message* message, void*, sd_bus_error*) {
    wardlock::fuzz::checkNotification(pair->receiver(), message);
    return 1;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    wardlock::fuzz::Plan plan({reinterpret_cast<const char*>(data), size});
    if (!pair) {
        pair = std::make_unique<BusPair>();
        sd_bus_add_filter(pair->receiver(), nullptr, arrived, nullptr);
    }
    const std::string signature = plan.yes() ? plan.bytes() : platform::notifications::format::signature;
    // A receiver closes the connection after a malformed message.
    if (!pair->send(signalMessage(signature, plan.rest())))
        pair.reset();
    return 0;
}
