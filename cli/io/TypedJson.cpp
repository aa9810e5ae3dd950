#include "cli/io/TypedJson.h"

#include "platform/base/Base64.h"
#include "platform/plist/CalendarDate.h"

#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

namespace wardlock::cli {

namespace {

using platform::Value;

std::string integerText(const Value& value) {
    return value.isUnsigned() ? std::to_string(value.unsignedInteger()) : std::to_string(value.integer());
}

std::string realText(double number) {
    if (std::isnan(number))
        return "nan";
    char digits[32];
    return std::string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

std::string base64(std::string_view bytes) {
    std::string text;
    platform::appendBase64(text, bytes);
    return text;
}

std::string dateText(double secondsSince2001) {
    std::string text;
    platform::appendDateText(text, secondsSince2001);
    return text;
}

Json arrayJson(const platform::Array& array) {
    Json elements = Json::array();
    for (const Value& element : array)
        elements.push_back(typedJson(element));
    return elements;
}

Json dictionaryJson(const platform::Dictionary& dictionary) {
    Json entries = Json::array();
    for (const auto& [key, value] : dictionary)
        entries.push_back(Json::array({std::string(key), typedJson(value)}));
    return entries;
}

/// Returns {"name": content}. An initialiser list would turn some contents into a pair.
Json tagged(const char* name, Json content) {
    Json result = Json::object();
    result[name] = std::move(content);
    return result;
}

} // namespace

Json typedJson(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return tagged("bool", value.boolean());
    case Value::Kind::Integer:
        return tagged("int", integerText(value));
    case Value::Kind::Real:
        return tagged("real", realText(value.real()));
    case Value::Kind::String:
        return tagged("string", std::string(value.string()));
    case Value::Kind::Data:
        return tagged("data", base64(value.data()));
    case Value::Kind::Date:
        return tagged("date", dateText(value.date()));
    case Value::Kind::Array:
        return tagged("array", arrayJson(value.array()));
    case Value::Kind::Dictionary:
        return tagged("dict", dictionaryJson(value.dictionary()));
    }
    return {};
}

Json typedJson(const Value* value) {
    return value ? typedJson(*value) : Json();
}

} // namespace wardlock::cli
