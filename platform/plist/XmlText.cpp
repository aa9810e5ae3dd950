#include "platform/plist/XmlText.h"

#include "platform/base/Utf8.h"
#include "platform/plist/XmlCharacter.h"

#include <array>
#include <charconv>
#include <cstdint>

namespace platform {

namespace {

struct NamedReference {
    std::string_view name;
    char character;
};

constexpr std::array namedReferences{
    NamedReference{"lt", '<'},   NamedReference{"gt", '>'},    NamedReference{"amp", '&'},
    NamedReference{"quot", '"'}, NamedReference{"apos", '\''},
};

/// Appends the character between "&" and ";". Every numeric reference that UTF-8 can encode is accepted:
/// control characters too, as other writers keep them.
bool appendReference(std::string& text, std::string_view reference) {
    for (const NamedReference& named : namedReferences) {
        if (reference == named.name) {
            text += named.character;
            return true;
        }
    }
    if (!reference.starts_with('#'))
        return false;
    const bool hexadecimal = reference.starts_with("#x");
    reference.remove_prefix(hexadecimal ? 2 : 1);
    std::uint32_t character = 0;
    const char* const end = reference.data() + reference.size();
    const auto [stop, error] = std::from_chars(reference.data(), end, character, hexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end || !isCharacter(character))
        return false;
    appendUtf8(character, text);
    return true;
}

/// Appends plain text with references and without tags.
bool appendText(std::string& text, std::string_view raw) {
    for (;;) {
        const std::size_t ampersand = raw.find('&');
        text += raw.substr(0, ampersand);
        if (ampersand == std::string_view::npos)
            return true;
        raw.remove_prefix(ampersand + 1);
        const std::size_t semicolon = raw.find(';');
        if (semicolon == std::string_view::npos || !appendReference(text, raw.substr(0, semicolon)))
            return false;
        raw.remove_prefix(semicolon + 1);
    }
}

bool isTag(const XmlCursor& cursor) {
    return cursor.peek(1) != '!' && cursor.peek(1) != '?';
}

} // namespace

std::optional<std::string_view> XmlText::take(XmlCursor& cursor) {
    std::string_view raw;
    if (!cursor.takeUntil('<', raw))
        return std::nullopt;
    if (isTag(cursor) && raw.find('&') == std::string_view::npos)
        return raw;
    std::string text;
    if (!appendText(text, raw))
        return std::nullopt;
    while (!isTag(cursor))
        if (!appendPiece(cursor, text))
            return std::nullopt;
    return resolved_.emplace_front(std::move(text));
}

/// Takes a CDATA section, a comment or an instruction, and the plain text after it.
bool XmlText::appendPiece(XmlCursor& cursor, std::string& text) {
    if (cursor.take("<![CDATA[")) {
        const std::string_view rest = cursor.rest();
        if (!cursor.skipPast("]]>"))
            return false;
        text += rest.substr(0, rest.size() - cursor.rest().size() - std::string_view("]]>").size());
    } else if (cursor.take("<!--")) {
        const std::string_view rest = cursor.rest();
        if (!cursor.skipPast("-->"))
            return false;
        restoreReplaced(text,
                        rest.substr(0, rest.size() - cursor.rest().size() - std::string_view("-->").size()));
    } else if (!cursor.take("<?") || !cursor.skipPast("?>")) {
        return false;
    }
    std::string_view raw;
    return cursor.takeUntil('<', raw) && appendText(text, raw);
}

} // namespace platform
