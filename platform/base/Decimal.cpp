#include "platform/base/Decimal.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace platform {

namespace {

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Finds what std::from_chars does not report of a number out of range: whether it is too large or too small.
bool isTooLarge(std::string_view decimal) {
    const std::size_t exponentAt = decimal.find_first_of("eE");
    const std::string_view digits = decimal.substr(0, exponentAt);
    const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
    const auto firstDigit = static_cast<double>(std::min(digits.find_first_not_of("0."), digits.size()));
    if (exponentAt == std::string_view::npos)
        return point > firstDigit;
    std::string_view exponent = decimal.substr(exponentAt + 1);
    const bool minus = exponent.starts_with('-');
    if (minus || exponent.starts_with('+'))
        exponent.remove_prefix(1);
    long long power = std::numeric_limits<long long>::max();
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    return point - firstDigit + static_cast<double>(minus ? -power : power) > 0;
}

} // namespace

Decimal leadingDecimal(std::string_view text) {
    // std::from_chars also accepts words and a sign.
    const std::size_t digitAt = text.starts_with('.') ? 1 : 0;
    if (digitAt >= text.size() || !isDigit(text[digitAt]))
        return {};
    Decimal decimal;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), decimal.value);
    decimal.length = static_cast<std::size_t>(end - text.data());
    if (error == std::errc::result_out_of_range)
        decimal.value =
            isTooLarge(text.substr(0, decimal.length)) ? std::numeric_limits<double>::infinity() : 0;
    return decimal;
}

} // namespace platform
