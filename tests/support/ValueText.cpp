#include "tests/support/ValueText.h"

#include <charconv>
#include <string_view>

namespace wardlock::test {

namespace {

using platform::Value;

constexpr int deepest = 100;

template <class T>
std::string digits(T number) {
    char buffer[32];
    return {buffer, std::to_chars(buffer, buffer + sizeof buffer, number).ptr};
}

std::string hexadecimal(std::string_view bytes) {
    std::string result;
    for (const char byte : bytes) {
        constexpr char hex[] = "0123456789abcdef";
        result += hex[static_cast<unsigned char>(byte) >> 4];
        result += hex[static_cast<unsigned char>(byte) & 15];
    }
    return result;
}

std::string quoted(std::string_view string) {
    std::string result = "\"";
    for (const char byte : string) {
        const bool plain = static_cast<unsigned char>(byte) >= ' ' && byte != '"' && byte != '\\';
        result += plain ? std::string(1, byte) : "\\x" + hexadecimal(std::string_view(&byte, 1));
    }
    return result + '"';
}

std::string text(const Value& value, int level) {
    std::string result;
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return value.boolean() ? "true" : "false";
    case Value::Kind::Integer:
        return value.isUnsigned() ? digits(value.unsignedInteger()) + "u" : digits(value.integer());
    case Value::Kind::Real:
        return "real " + digits(value.real());
    case Value::Kind::String:
        return quoted(value.string());
    case Value::Kind::Data:
        return "<" + hexadecimal(value.data()) + ">";
    case Value::Kind::Date:
        return "date " + digits(value.date());
    case Value::Kind::Array:
        if (level == deepest)
            return "...";
        for (const Value& element : value.array())
            result += (result.empty() ? "" : ", ") + text(element, level + 1);
        return "[" + result + "]";
    case Value::Kind::Dictionary:
        break;
    }
    if (level == deepest)
        return "...";
    for (const auto& [key, element] : value.dictionary())
        result += (result.empty() ? "" : ", ") + quoted(key) + ": " + text(element, level + 1);
    return "{" + result + "}";
}

} // namespace

std::string text(const Value& value) {
    return text(value, 0);
}

} // namespace wardlock::test
