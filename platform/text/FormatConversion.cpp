#include "platform/text/FormatConversion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <type_traits>

namespace platform {

namespace {

constexpr std::string_view absent = "(null)";

template <class Number>
std::string digits(Number number, int base = 10) {
    std::array<char, 72> buffer;
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number, base).ptr};
}

void makeUpper(std::string& text) {
    for (char& c : text)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
}

std::string objectText(const FormatArgument* argument) {
    if (!argument)
        return std::string(absent);
    return std::visit(
        [](const auto& content) -> std::string {
            using Content = std::decay_t<decltype(content)>;
            if constexpr (std::is_same_v<Content, std::monostate>)
                return std::string(absent);
            else if constexpr (std::is_same_v<Content, std::string_view>)
                return std::string(content);
            else if constexpr (std::is_same_v<Content, const Value*>)
                return description(*content);
            else
                return description(Value(content));
        },
        argument->argument());
}

/// Pads the text to the width, with blanks before it or behind it.
std::string padded(const Conversion& conversion, std::string text) {
    if (text.size() >= conversion.width)
        return text;
    const std::string blanks(conversion.width - text.size(), ' ');
    return conversion.left ? text + blanks : blanks + text;
}

/// Pads a number to the width: zeros, where requested, go between its sign and its digits.
std::string paddedNumber(const Conversion& conversion, std::string prefix, const std::string& number,
                         bool zerosAllowed) {
    const std::size_t size = prefix.size() + number.size();
    if (conversion.zero && !conversion.left && zerosAllowed && size < conversion.width)
        prefix.append(conversion.width - size, '0');
    return padded(conversion, prefix + number);
}

std::string integerText(const Conversion& conversion, bool negative, std::uint64_t magnitude) {
    std::string number;
    std::string prefix;
    switch (conversion.letter) {
    case 'o':
        number = digits(magnitude, 8);
        if (conversion.alternate && number.front() != '0')
            number.insert(0, 1, '0');
        break;
    case 'x':
    case 'X':
    case 'p':
        number = digits(magnitude, 16);
        if (conversion.letter == 'p' || (conversion.alternate && magnitude != 0))
            prefix = "0x";
        break;
    default:
        number = digits(magnitude);
    }
    if (conversion.letter == 'd' || conversion.letter == 'i') {
        if (negative)
            prefix = "-";
        else if (conversion.sign)
            prefix = conversion.sign;
    }
    // The alternate octal form keeps its zero.
    const bool keepsZero = conversion.letter == 'o' && conversion.alternate;
    if (conversion.precision == 0 && magnitude == 0 && !keepsZero)
        number.clear();
    if (conversion.precision && number.size() < *conversion.precision)
        number.insert(0, *conversion.precision - number.size(), '0');
    if (conversion.letter == 'X') {
        makeUpper(number);
        makeUpper(prefix);
    }
    return paddedNumber(conversion, std::move(prefix), number, !conversion.precision);
}

std::string signedText(const Conversion& conversion, std::int64_t number, std::size_t bytes) {
    const bool isSigned = conversion.letter == 'd' || conversion.letter == 'i';
    auto magnitude = static_cast<std::uint64_t>(number);
    if (number < 0 && isSigned)
        magnitude = 0 - magnitude;
    else if (number < 0 && bytes < sizeof(number))
        magnitude &= (std::uint64_t{1} << (8 * bytes)) - 1;
    return integerText(conversion, number < 0, magnitude);
}

/// Returns a character as UTF-8; the bits that a byte cannot contain are cut off, as in the printf
/// conversion.
std::string characterText(const Conversion& conversion, std::uint64_t code) {
    const auto byte = static_cast<unsigned char>(code);
    std::string text;
    if (byte >= 0x80) {
        text += static_cast<char>(0xc0 | (byte >> 6));
        text += static_cast<char>(0x80 | (byte & 0x3f));
    } else {
        text += static_cast<char>(byte);
    }
    return padded(conversion, text);
}

std::string realDigits(const Conversion& conversion, double magnitude) {
    // The longest number: every digit before the point, and the precision behind it.
    std::array<char, 320 + maximumPrecision> buffer;
    char* const begin = buffer.data();
    char* const end = begin + buffer.size();
    const char kind = static_cast<char>(conversion.letter | 0x20);
    const auto precision = static_cast<int>(conversion.precision.value_or(6));
    if (kind == 'a') {
        const auto result = conversion.precision
                                ? std::to_chars(begin, end, magnitude, std::chars_format::hex, precision)
                                : std::to_chars(begin, end, magnitude, std::chars_format::hex);
        return {begin, result.ptr};
    }
    const auto form = kind == 'f'   ? std::chars_format::fixed
                      : kind == 'e' ? std::chars_format::scientific
                                    : std::chars_format::general;
    return {begin, std::to_chars(begin, end, magnitude, form, precision).ptr};
}

/// Completes the alternate form: it always has its point, and the general one shows all digits of the
/// precision, zeros as well.
void completeAlternate(const Conversion& conversion, std::string& text) {
    if (text.find('.') == std::string::npos)
        text.insert(std::min(text.find_first_of("ep"), text.size()), 1, '.');
    if ((conversion.letter | 0x20) != 'g')
        return;
    const std::size_t end = std::min(text.find('e'), text.size());
    const std::size_t found = text.find_first_of("123456789");
    const std::size_t first = found < end ? found : 0;
    const std::size_t digits = end - first - (text.find('.') > first ? 1 : 0);
    const auto wanted = std::max<std::size_t>(conversion.precision.value_or(6), 1);
    if (digits < wanted)
        text.insert(end, wanted - digits, '0');
}

std::string realText(const Conversion& conversion, double number) {
    const bool finite = std::isfinite(number);
    std::string text = realDigits(conversion, std::abs(number));
    std::string prefix;
    if (std::signbit(number) && !std::isnan(number))
        prefix = "-";
    else if (conversion.sign)
        prefix = conversion.sign;
    if (finite && (conversion.letter | 0x20) == 'a')
        prefix += "0x";
    if (finite && conversion.alternate)
        completeAlternate(conversion, text);
    if (conversion.letter >= 'A' && conversion.letter <= 'Z') {
        makeUpper(text);
        makeUpper(prefix);
    }
    return paddedNumber(conversion, std::move(prefix), text, finite);
}

/// Cuts the text to the precision in bytes, never within a character.
std::string stringText(const Conversion& conversion, std::string_view text) {
    if (conversion.precision && *conversion.precision < text.size()) {
        std::size_t end = *conversion.precision;
        while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xc0) == 0x80)
            --end;
        text = text.substr(0, end);
    }
    return padded(conversion, std::string(text));
}

bool isOneOf(char letter, std::string_view letters) {
    return letters.find(letter) != std::string_view::npos;
}

} // namespace

std::string converted(const Conversion& conversion, const FormatArgument* argument) {
    if (!argument)
        return padded(conversion, std::string(absent));
    const auto& content = argument->argument();
    if (const auto* number = std::get_if<std::int64_t>(&content)) {
        if (conversion.letter == 'c')
            return characterText(conversion, static_cast<std::uint64_t>(*number));
        if (isOneOf(conversion.letter, "diouxXp"))
            return signedText(conversion, *number, argument->bytes());
    } else if (const auto* positive = std::get_if<std::uint64_t>(&content)) {
        if (conversion.letter == 'c')
            return characterText(conversion, *positive);
        if (isOneOf(conversion.letter, "diouxXp"))
            return integerText(conversion, false, *positive);
    } else if (const auto* real = std::get_if<double>(&content)) {
        if (isOneOf(conversion.letter, "fFeEgGaA"))
            return realText(conversion, *real);
    } else if (const auto* text = std::get_if<std::string_view>(&content)) {
        if (conversion.letter == 's')
            return stringText(conversion, *text);
    }
    return padded(conversion, objectText(argument));
}

} // namespace platform
