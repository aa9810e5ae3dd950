#include "platform/plist/XmlNumber.h"

#include "platform/base/Decimal.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace platform {

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view space = " \t\r\n";
    const std::size_t first = text.find_first_not_of(space);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(space) - first + 1);
}

/// Takes a sign off the front; returns whether it was a minus.
bool takeSign(std::string_view& text) {
    const bool minus = text.starts_with('-');
    if (minus || text.starts_with('+'))
        text.remove_prefix(1);
    return minus;
}

bool equalsIgnoringCase(std::string_view text, std::string_view lowerCase) {
    if (text.size() != lowerCase.size())
        return false;
    for (std::size_t i = 0; i < text.size(); ++i)
        if ((text[i] | 0x20) != lowerCase[i])
            return false;
    return true;
}

} // namespace

std::optional<Value> integerFromText(std::string_view text) {
    text = trimmed(text);
    const bool minus = takeSign(text);
    text = trimmed(text);
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        base = 16;
        text.remove_prefix(2);
    }
    std::uint64_t magnitude = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, magnitude, base);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    if (!minus)
        return Value(magnitude);
    constexpr std::uint64_t least = std::uint64_t(1) << 63;
    if (magnitude > least)
        return std::nullopt;
    return Value(static_cast<std::int64_t>(0 - magnitude));
}

std::optional<Value> realFromText(std::string_view text) {
    text = trimmed(text);
    if (equalsIgnoringCase(text, "nan"))
        return Value(std::numeric_limits<double>::quiet_NaN());
    const bool minus = takeSign(text);
    double magnitude = 0;
    if (equalsIgnoringCase(text, "inf") || equalsIgnoringCase(text, "infinity")) {
        magnitude = std::numeric_limits<double>::infinity();
    } else {
        const Decimal decimal = leadingDecimal(text);
        if (decimal.length == 0 || decimal.length != text.size())
            return std::nullopt;
        magnitude = decimal.value;
    }
    return Value(minus ? -magnitude : magnitude);
}

void appendInteger(std::string& text, const Value& integer) {
    char digits[20];
    const auto end = integer.isUnsigned() ? std::to_chars(digits, std::end(digits), integer.unsignedInteger())
                                          : std::to_chars(digits, std::end(digits), integer.integer());
    text.append(digits, end.ptr);
}

void appendReal(std::string& text, double real) {
    if (std::isnan(real)) {
        text += "nan";
    } else if (std::isinf(real)) {
        text += real < 0 ? "-infinity" : "+infinity";
    } else {
        char digits[32];
        text.append(digits, std::to_chars(digits, std::end(digits), real).ptr);
    }
}

} // namespace platform
