#include "linux/notifications/UserInfoReader.h"

#include "linux/notifications/FlattenedValue.h"
#include "linux/notifications/NotificationFormat.h"
#include "platform/plist/PropertyListBounds.h"
#include "platform/values/MutableDictionary.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace platform::notifications {

namespace {

template <class T>
std::optional<Value> readBasic(sd_bus_message* message, char type) {
    T number{};
    if (sd_bus_message_read_basic(message, type, &number) <= 0)
        return std::nullopt;
    return Value(number);
}

} // namespace

std::optional<Dictionary> UserInfoReader::read() {
    const auto value = readVariant(1);
    if (!value || !value->is(Value::Kind::Dictionary))
        return std::nullopt;
    return value->dictionary();
}

std::optional<Value> UserInfoReader::readVariant(int level) {
    char type = 0;
    const char* contents = nullptr;
    if (level > format::mostNestedLevels || sd_bus_message_peek_type(message_, &type, &contents) <= 0 ||
        type != 'v' || !account())
        return std::nullopt;
    const std::string signature(contents);
    if (sd_bus_message_enter_container(message_, 'v', signature.c_str()) <= 0)
        return std::nullopt;
    auto value = readContents(signature, level);
    if (value && sd_bus_message_exit_container(message_) < 0)
        return std::nullopt;
    return value;
}

std::optional<Value> UserInfoReader::readContents(std::string_view signature, int level) {
    if (signature.size() == 1)
        return signature == "s" ? readText() : readNumber(signature.front());
    if (signature == "av")
        return readArray(level);
    if (signature == "a{sv}")
        return readDictionary(level);
    if (signature == "ay")
        return readBytes(Value::Kind::Data);
    if (signature.size() < 3 || signature.front() != '(' || signature.back() != ')')
        return std::nullopt;
    const std::string inner(signature.substr(1, signature.size() - 2));
    if (sd_bus_message_enter_container(message_, 'r', inner.c_str()) <= 0)
        return std::nullopt;
    std::optional<Value> value;
    if (inner == "d") {
        if (const auto seconds = readBasic<double>(message_, 'd'))
            value = Value::date(seconds->real());
    } else if (inner == "ay") {
        value = readBytes(Value::Kind::String);
    } else if (inner == "av") {
        value = readFlattened(level);
    }
    if (value && sd_bus_message_exit_container(message_) < 0)
        return std::nullopt;
    return value;
}

std::optional<Value> UserInfoReader::readNumber(char type) {
    switch (type) {
    case 'b': {
        int boolean = 0;
        if (sd_bus_message_read_basic(message_, 'b', &boolean) <= 0)
            return std::nullopt;
        return Value(boolean != 0);
    }
    case 'y':
        return readBasic<std::uint8_t>(message_, type);
    case 'n':
        return readBasic<std::int16_t>(message_, type);
    case 'q':
        return readBasic<std::uint16_t>(message_, type);
    case 'i':
        return readBasic<std::int32_t>(message_, type);
    case 'u':
        return readBasic<std::uint32_t>(message_, type);
    case 'x':
        return readBasic<std::int64_t>(message_, type);
    case 't':
        return readBasic<std::uint64_t>(message_, type);
    case 'd':
        return readBasic<double>(message_, type);
    default:
        return std::nullopt;
    }
}

std::optional<Value> UserInfoReader::readText() {
    return readBasic<const char*>(message_, 's');
}

std::optional<Value> UserInfoReader::readBytes(Value::Kind kind) {
    const void* bytes = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(message_, 'y', &bytes, &size) < 0)
        return std::nullopt;
    const std::string_view view(static_cast<const char*>(bytes), size);
    return kind == Value::Kind::Data ? Value::data(view) : Value(view);
}

std::optional<Value> UserInfoReader::readArray(int level) {
    if (sd_bus_message_enter_container(message_, 'a', "v") < 0)
        return std::nullopt;
    std::vector<Value> elements;
    while (sd_bus_message_at_end(message_, 0) == 0) {
        auto element = readVariant(level + 1);
        if (!element)
            return std::nullopt;
        elements.push_back(*std::move(element));
    }
    if (sd_bus_message_exit_container(message_) < 0)
        return std::nullopt;
    return Array(std::move(elements));
}

std::optional<Value> UserInfoReader::readDictionary(int level) {
    if (sd_bus_message_enter_container(message_, 'a', "{sv}") < 0)
        return std::nullopt;
    MutableDictionary entries;
    while (sd_bus_message_at_end(message_, 0) == 0) {
        const char* key = nullptr;
        if (sd_bus_message_enter_container(message_, 'e', "sv") <= 0 ||
            sd_bus_message_read_basic(message_, 's', &key) <= 0)
            return std::nullopt;
        const auto value = readVariant(level + 1);
        if (!value || sd_bus_message_exit_container(message_) < 0)
            return std::nullopt;
        entries.set(key, *value);
    }
    if (sd_bus_message_exit_container(message_) < 0)
        return std::nullopt;
    return entries.copy();
}

std::optional<Value> UserInfoReader::readFlattened(int level) {
    if (sd_bus_message_enter_container(message_, 'a', "v") < 0)
        return std::nullopt;
    FlattenedValue assembled(deepestPropertyList - static_cast<std::size_t>(level - 1));
    while (sd_bus_message_at_end(message_, 0) == 0) {
        if (assembled.isComplete() || !readToken(assembled))
            return std::nullopt;
    }
    if (!assembled.isComplete() || sd_bus_message_exit_container(message_) < 0)
        return std::nullopt;
    return assembled.take();
}

bool UserInfoReader::readToken(FlattenedValue& assembled) {
    const char* contents = nullptr;
    char type = 0;
    if (sd_bus_message_peek_type(message_, &type, &contents) <= 0 || type != 'v')
        return false;
    const std::string_view signature(contents);
    if (signature == "av" || signature == "a{sv}" || signature == "(av)")
        return false; // A container within a flattened one is flattened with it: nothing nests here.
    if (signature != "(su)") {
        auto value = readVariant(format::mostNestedLevels);
        return value && assembled.add(*std::move(value));
    }
    const char* kind = nullptr;
    std::uint32_t count = 0;
    if (!account() || sd_bus_message_read(message_, "v", "(su)", &kind, &count) <= 0)
        return false;
    if (std::string_view(kind) == format::array)
        return assembled.beginArray(count);
    return std::string_view(kind) == format::dictionary && assembled.beginDictionary(count);
}

bool UserInfoReader::account() {
    return ++values_ <= format::mostValues;
}

} // namespace platform::notifications
