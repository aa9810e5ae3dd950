#include "cli/io/PlainJson.h"

#include "platform/base/Base64.h"
#include "platform/plist/CalendarDate.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace wardlock::cli {

using platform::Value;

namespace {

Json textOf(const Value& value) {
    std::string text;
    if (value.is(Value::Kind::Data))
        platform::appendBase64(text, value.data());
    else
        platform::appendDateText(text, value.date());
    return text;
}

Json arrayJson(const platform::Array& array) {
    Json elements = Json::array();
    for (const Value& element : array)
        elements.push_back(plainJson(element));
    return elements;
}

Json dictionaryJson(const platform::Dictionary& dictionary) {
    Json members = Json::object();
    for (const auto& [key, value] : dictionary)
        members[std::string(key)] = plainJson(value);
    return members;
}

} // namespace

Json plainJson(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return value.boolean();
    case Value::Kind::Integer:
        return value.isUnsigned() ? Json(value.unsignedInteger()) : Json(value.integer());
    case Value::Kind::Real:
        return std::isfinite(value.real()) ? Json(value.real()) : Json();
    case Value::Kind::String:
        return std::string(value.string());
    case Value::Kind::Data:
    case Value::Kind::Date:
        return textOf(value);
    case Value::Kind::Array:
        return arrayJson(value.array());
    case Value::Kind::Dictionary:
        return dictionaryJson(value.dictionary());
    }
    return {};
}

Json plainJson(const Value* value) {
    return value ? plainJson(*value) : Json();
}

} // namespace wardlock::cli
