#include "platform/foundation/TextDecoding.h"

#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

namespace {

using namespace std::string_view_literals;

enum class Encoding { Utf8, Ascii, Latin1, Utf16, Utf32 };

struct Form {
    Encoding encoding;
    ByteOrder order = ByteOrder::Big;
    std::size_t markLength = 0;
};

template <std::size_t Size>
char32_t unitAt(std::string_view bytes, std::size_t at, ByteOrder order) {
    char32_t unit = 0;
    for (std::size_t i = 0; i < Size; ++i)
        unit = unit << 8 |
               static_cast<unsigned char>(bytes[order == ByteOrder::Big ? at + i : at + Size - 1 - i]);
    return unit;
}

std::optional<std::string> utf8FromUtf32(std::string_view bytes, ByteOrder order) {
    if (bytes.size() % 4 != 0)
        return std::nullopt;
    std::string text;
    text.reserve(bytes.size() / 4);
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        const char32_t unit = unitAt<4>(bytes, at, order);
        if (!isCharacter(unit))
            return std::nullopt;
        appendUtf8(unit, text);
    }
    return text;
}

std::string utf8FromLatin1(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    for (const char byte : bytes)
        appendUtf8(static_cast<unsigned char>(byte), text);
    return text;
}

bool isAscii(std::string_view bytes) {
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

/// What the text ["encoding" = "name"] of the XML declaration names; empty when there is none.
std::string declaredEncoding(std::string_view bytes) {
    constexpr std::string_view space = " \t\r\n";
    bytes.remove_prefix(std::min(bytes.find_first_not_of(space), bytes.size()));
    if (!bytes.starts_with("<?xml"))
        return {};
    std::string_view rest = bytes.substr(0, bytes.find("?>"));
    const std::size_t word = rest.find("encoding");
    if (word == std::string_view::npos)
        return {};
    rest.remove_prefix(word + "encoding"sv.size());
    const std::size_t open = rest.find_first_not_of(" \t\r\n=");
    if (open == std::string_view::npos || (rest[open] != '"' && rest[open] != '\''))
        return {};
    const std::size_t close = rest.find(rest[open], open + 1);
    return close == std::string_view::npos ? std::string()
                                           : lowerCase(rest.substr(open + 1, close - open - 1));
}

std::optional<Form> byDeclaration(std::string_view bytes) {
    struct Name {
        std::string_view name;
        Encoding encoding;
    };
    static constexpr std::array names{
        Name{"utf-8", Encoding::Utf8},        Name{"utf8", Encoding::Utf8},
        Name{"us-ascii", Encoding::Ascii},    Name{"ascii", Encoding::Ascii},
        Name{"iso-8859-1", Encoding::Latin1}, Name{"iso_8859-1", Encoding::Latin1},
        Name{"iso8859-1", Encoding::Latin1},  Name{"latin1", Encoding::Latin1},
        Name{"latin-1", Encoding::Latin1},    Name{"", Encoding::Utf8},
    };
    const std::string declared = declaredEncoding(bytes);
    const auto* found =
        std::find_if(names.begin(), names.end(), [&](const Name& each) { return each.name == declared; });
    if (found == names.end())
        return std::nullopt;
    return Form{found->encoding};
}

std::optional<Form> formOf(std::string_view bytes) {
    struct Opening {
        std::string_view bytes;
        Form form;
    };
    // The longer before the shorter that begin alike.
    static constexpr std::array openings{
        Opening{"\x00\x00\xFE\xFF"sv, {Encoding::Utf32, ByteOrder::Big, 4}},
        Opening{"\xFF\xFE\x00\x00"sv, {Encoding::Utf32, ByteOrder::Little, 4}},
        Opening{"\x00\x00\x00<"sv, {Encoding::Utf32, ByteOrder::Big, 0}},
        Opening{"<\x00\x00\x00"sv, {Encoding::Utf32, ByteOrder::Little, 0}},
        Opening{"\xEF\xBB\xBF"sv, {Encoding::Utf8, ByteOrder::Big, 3}},
        Opening{"\xFE\xFF"sv, {Encoding::Utf16, ByteOrder::Big, 2}},
        Opening{"\xFF\xFE"sv, {Encoding::Utf16, ByteOrder::Little, 2}},
        Opening{"\x00<"sv, {Encoding::Utf16, ByteOrder::Big, 0}},
        Opening{"<\x00"sv, {Encoding::Utf16, ByteOrder::Little, 0}},
    };
    for (const Opening& opening : openings)
        if (bytes.starts_with(opening.bytes))
            return opening.form;
    return byDeclaration(bytes);
}

} // namespace

std::optional<std::string> utf8FromUtf16(std::string_view bytes, ByteOrder order) {
    if (bytes.size() % 2 != 0)
        return std::nullopt;
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 0; at < bytes.size(); at += 2) {
        char32_t unit = unitAt<2>(bytes, at, order);
        if (unit >= 0xD800 && unit < 0xDC00) {
            at += 2;
            const char32_t low = at < bytes.size() ? unitAt<2>(bytes, at, order) : 0;
            if (low < 0xDC00 || low > 0xDFFF)
                return std::nullopt;
            unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        }
        if (!isCharacter(unit))
            return std::nullopt;
        appendUtf8(unit, text);
    }
    return text;
}

std::optional<std::string_view> xmlAsUtf8(std::string_view bytes, std::string& storage) {
    const std::optional<Form> form = formOf(bytes);
    if (!form)
        return std::nullopt;
    bytes.remove_prefix(form->markLength);
    std::optional<std::string> converted;
    switch (form->encoding) {
    case Encoding::Utf8:
        return isValidUtf8(bytes) ? std::optional(bytes) : std::nullopt;
    case Encoding::Ascii:
        return isAscii(bytes) ? std::optional(bytes) : std::nullopt;
    case Encoding::Latin1:
        converted = utf8FromLatin1(bytes);
        break;
    case Encoding::Utf16:
        converted = utf8FromUtf16(bytes, form->order);
        break;
    case Encoding::Utf32:
        converted = utf8FromUtf32(bytes, form->order);
        break;
    }
    if (!converted)
        return std::nullopt;
    storage = std::move(*converted);
    return storage;
}

} // namespace platform
