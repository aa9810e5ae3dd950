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

/// Takes plain text with references, up to the next "<", and appends it.
bool appendText(XmlCursor& cursor, std::string& text) {
    std::string_view raw;
    while (cursor.takePlainText(raw)) {
        text += raw;
        if (!cursor.take("&"))
            return true;
        const std::string_view rest = cursor.rest();
        const std::size_t semicolon = rest.find(';');
        if (semicolon == std::string_view::npos || !appendReference(text, rest.substr(0, semicolon)))
            return false;
        cursor.skip(semicolon + 1);
    }
    return false;
}

bool isTag(const XmlCursor& cursor) {
    return cursor.peek(1) != '!' && cursor.peek(1) != '?';
}

} // namespace

std::optional<std::string_view> XmlText::take(XmlCursor& cursor) {
    std::string_view raw;
    if (!cursor.takePlainText(raw))
        return std::nullopt;
    if (cursor.peek() == '<' && isTag(cursor))
        return raw;
    decoded_ = raw;
    if (!appendText(cursor, decoded_))
        return std::nullopt;
    while (!isTag(cursor))
        if (!appendPiece(cursor))
            return std::nullopt;
    return decoded_;
}

std::string_view XmlText::kept(std::string_view text) {
    return text.data() == decoded_.data() ? kept_.emplace_front(text) : text;
}

/// Takes a CDATA section, a comment or an instruction, and the plain text after it.
bool XmlText::appendPiece(XmlCursor& cursor) {
    if (cursor.take("<![CDATA[")) {
        const std::string_view rest = cursor.rest();
        if (!cursor.skipPast("]]>"))
            return false;
        decoded_ += rest.substr(0, rest.size() - cursor.rest().size() - std::string_view("]]>").size());
    } else if (cursor.take("<!--")) {
        const std::string_view rest = cursor.rest();
        if (!cursor.skipPast("-->"))
            return false;
        restoreReplaced(decoded_,
                        rest.substr(0, rest.size() - cursor.rest().size() - std::string_view("-->").size()));
    } else if (!cursor.take("<?") || !cursor.skipPast("?>")) {
        return false;
    }
    return appendText(cursor, decoded_);
}

} // namespace platform
