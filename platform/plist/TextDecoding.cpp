#include "platform/plist/TextDecoding.h"

#include "platform/base/Utf8.h"
#include "platform/plist/XmlProlog.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace platform {

namespace {

using namespace std::string_view_literals;

enum class Encoding { Utf8, Ascii, Latin1, Windows1252, Utf16, Utf32 };

struct Form {
    Encoding encoding;
    ByteOrder order = ByteOrder::Big;
    std::size_t markLength = 0;
};

/// The meaning of an encoding's name; no byte order where the name leaves that to the mark.
struct Declaration {
    Encoding encoding;
    std::optional<ByteOrder> order{};
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

/// windows-1252 differs from Latin-1 where that has the second block of control characters, but for five
/// codes.
std::string utf8FromWindows1252(std::string_view bytes) {
    static constexpr unsigned char first = 0x80;
    static constexpr std::array<char16_t, 32> others{
        0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x8D,   0x017D, 0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool other = byte >= first && byte < first + others.size();
        appendUtf8(other ? others[byte - first] : byte, text);
    }
    return text;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

/// Returns the value of `encoding="name"` in the XML declaration, in lower case; nothing where it is missing.
std::optional<std::string> declaredEncoding(std::string_view bytes) {
    constexpr std::string_view space = " \t\r\n";
    bytes.remove_prefix(std::min(bytes.find_first_not_of(space), bytes.size()));
    if (!bytes.starts_with("<?xml"))
        return std::nullopt;
    std::string_view rest = bytes.substr(0, bytes.find("?>"));
    const std::size_t word = rest.find("encoding");
    if (word == std::string_view::npos)
        return std::nullopt;
    rest.remove_prefix(word + "encoding"sv.size());
    const std::size_t open = rest.find_first_not_of(" \t\r\n=");
    if (open == std::string_view::npos || (rest[open] != '"' && rest[open] != '\''))
        return std::nullopt;
    const std::size_t close = rest.find(rest[open], open + 1);
    if (close == std::string_view::npos)
        return std::nullopt;
    return lowerCase(rest.substr(open + 1, close - open - 1));
}

/// Returns what the declaration names; UTF-8 where it names no encoding; nothing for an unknown name.
std::optional<Declaration> declarationOf(std::string_view bytes) {
    struct Name {
        std::string_view name;
        Declaration meaning;
    };
    static constexpr std::array names{
        Name{"utf-8", {Encoding::Utf8}},
        Name{"utf8", {Encoding::Utf8}},
        Name{"us-ascii", {Encoding::Ascii}},
        Name{"ascii", {Encoding::Ascii}},
        Name{"iso-8859-1", {Encoding::Latin1}},
        Name{"iso_8859-1", {Encoding::Latin1}},
        Name{"iso8859-1", {Encoding::Latin1}},
        Name{"latin1", {Encoding::Latin1}},
        Name{"latin-1", {Encoding::Latin1}},
        Name{"windows-1252", {Encoding::Windows1252}},
        Name{"cp1252", {Encoding::Windows1252}},
        Name{"utf-16", {Encoding::Utf16}},
        Name{"utf-16be", {Encoding::Utf16, ByteOrder::Big}},
        Name{"utf-16le", {Encoding::Utf16, ByteOrder::Little}},
        Name{"utf-32", {Encoding::Utf32}},
        Name{"utf-32be", {Encoding::Utf32, ByteOrder::Big}},
        Name{"utf-32le", {Encoding::Utf32, ByteOrder::Little}},
    };
    const std::optional<std::string> declared = declaredEncoding(bytes);
    if (!declared)
        return Declaration{Encoding::Utf8};
    const auto* found =
        std::find_if(names.begin(), names.end(), [&](const Name& each) { return each.name == *declared; });
    if (found == names.end())
        return std::nullopt;
    return found->meaning;
}

/// Finds the form by the byte-order mark, or by the zeros around a "<" in wide units.
std::optional<Form> byOpening(std::string_view bytes) {
    struct Opening {
        std::string_view bytes;
        Form form;
    };
    // Of openings that begin alike, the longer comes first.
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
    // The beginning of most documents.
    if (bytes.starts_with("<?xml"))
        return std::nullopt;
    for (const Opening& opening : openings)
        if (bytes.starts_with(opening.bytes))
            return opening.form;
    return std::nullopt;
}

std::optional<Form> byDeclaration(std::string_view bytes) {
    if (bytes.starts_with(xmlProlog))
        return Form{Encoding::Utf8};
    const std::optional<Declaration> declared = declarationOf(bytes);
    // A declaration that can be read byte by byte is not in wide units.
    if (!declared || declared->encoding == Encoding::Utf16 || declared->encoding == Encoding::Utf32)
        return std::nullopt;
    return Form{declared->encoding};
}

/// Returns whether the declaration of a text that was decoded by its opening agrees: wide units without a
/// mark need a declaration that names them.
bool declarationFits(std::string_view text, const Form& form) {
    const std::optional<std::string> name = declaredEncoding(text);
    if (name && name->empty())
        return false;
    const bool wide = form.encoding == Encoding::Utf16 || form.encoding == Encoding::Utf32;
    if (!wide || form.markLength > 0)
        return true;
    const std::optional<Declaration> declared = declarationOf(text);
    return declared && declared->encoding == form.encoding &&
           declared->order.value_or(form.order) == form.order;
}

std::optional<std::string> converted(std::string_view bytes, const Form& form) {
    switch (form.encoding) {
    case Encoding::Latin1:
        return utf8FromLatin1(bytes);
    case Encoding::Windows1252:
        return utf8FromWindows1252(bytes);
    case Encoding::Utf16:
        return utf8FromUtf16(bytes, form.order);
    case Encoding::Utf32:
        return utf8FromUtf32(bytes, form.order);
    default:
        return std::nullopt;
    }
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
    const std::optional<Form> opening = byOpening(bytes);
    const std::optional<Form> form = opening ? opening : byDeclaration(bytes);
    if (!form)
        return std::nullopt;
    bytes.remove_prefix(form->markLength);
    const bool isAlready = form->encoding == Encoding::Utf8 || form->encoding == Encoding::Ascii;
    if (isAlready) {
        if (form->encoding == Encoding::Utf8 ? !isValidUtf8(bytes) : !isAscii(bytes))
            return std::nullopt;
    } else {
        std::optional<std::string> text = converted(bytes, *form);
        if (!text)
            return std::nullopt;
        storage = *std::move(text);
        bytes = storage;
    }
    return !opening || declarationFits(bytes, *opening) ? std::optional(bytes) : std::nullopt;
}

} // namespace platform
