#include "platform/base/Decimal.h"
#include "platform/values/Value.h"

#include <cmath>
#include <limits>

namespace platform {

namespace {

std::string_view withoutLeadingSpace(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\n\r\v\f");
    return start == std::string_view::npos ? std::string_view() : text.substr(start);
}

/// Takes a sign off the front; returns whether it was a minus.
bool takeSign(std::string_view& text) {
    if (text.empty() || (text.front() != '-' && text.front() != '+'))
        return false;
    const bool minus = text.front() == '-';
    text.remove_prefix(1);
    return minus;
}

/// A sign and zeroes may precede the deciding character.
bool textIsTrue(std::string_view text) {
    text = withoutLeadingSpace(text);
    takeSign(text);
    const std::size_t start = text.find_first_not_of('0');
    if (start == std::string_view::npos)
        return false;
    const char first = text[start];
    return first == 'Y' || first == 'y' || first == 'T' || first == 't' || (first >= '1' && first <= '9');
}

double leadingNumber(std::string_view text) {
    text = withoutLeadingSpace(text);
    const bool minus = takeSign(text);
    const double magnitude = leadingDecimal(text).value;
    return minus ? -magnitude : magnitude;
}

double number(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return value.boolean() ? 1 : 0;
    case Value::Kind::Integer:
        return value.isUnsigned() ? static_cast<double>(value.unsignedInteger())
                                  : static_cast<double>(value.integer());
    case Value::Kind::Real:
        return value.real();
    case Value::Kind::String:
        return leadingNumber(value.string());
    default:
        return 0;
    }
}

/// Converts a double beyond the range of float to the infinity of its sign.
float narrow(double wide) {
    if (std::abs(wide) > static_cast<double>(std::numeric_limits<float>::max()) && std::isfinite(wide))
        return std::copysign(std::numeric_limits<float>::infinity(),
                             static_cast<float>(std::signbit(wide) ? -1 : 1));
    return static_cast<float>(wide);
}

} // namespace

bool boolValueOfOther(const Value& value) {
    return value.is(Value::Kind::String) ? textIsTrue(value.string()) : number(value) != 0;
}

float floatValue(const Value* value) {
    return value ? narrow(number(*value)) : 0;
}

} // namespace platform
