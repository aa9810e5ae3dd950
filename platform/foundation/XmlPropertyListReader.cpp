#include "platform/foundation/XmlPropertyListReader.h"

#include "platform/foundation/Base64.h"
#include "platform/foundation/CalendarDate.h"
#include "platform/foundation/XmlNumber.h"

namespace platform {

std::optional<Value> XmlPropertyListReader::read() {
    if (!readProlog())
        return std::nullopt;
    do {
        if (!skipMiscellany() || !readElement())
            return std::nullopt;
    } while (builder_.depth() > 0);
    if (!skipMiscellany())
        return std::nullopt;
    if (wrapped_) {
        const auto tag = takeTag();
        if (!tag || !tag->closing || tag->element != Element::PropertyList || !skipMiscellany())
            return std::nullopt;
    }
    return cursor_.atEnd() ? builder_.take() : std::nullopt;
}

/// White space, comments and processing instructions. Answers false for one without an end.
bool XmlPropertyListReader::skipMiscellany() {
    for (;;) {
        cursor_.skipSpace();
        if (cursor_.peek(1) == '!' && cursor_.take("<!--")) {
            if (!cursor_.skipPast("-->"))
                return false;
        } else if (cursor_.peek(1) == '?' && cursor_.take("<?")) {
            if (!cursor_.skipPast("?>"))
                return false;
        } else {
            return true;
        }
    }
}

bool XmlPropertyListReader::skipDocumentType() {
    while (!cursor_.atEnd()) {
        const char c = cursor_.peek();
        if (c == '[' || c == '<')
            return false;
        cursor_.skip(1);
        if (c == '>')
            return true;
        if ((c == '"' || c == '\'') && !cursor_.skipPast({&c, 1}))
            return false;
    }
    return false;
}

/// What stands before the value: one DOCTYPE at most, and the <plist> tag, which may be missing.
bool XmlPropertyListReader::readProlog() {
    if (!skipMiscellany())
        return false;
    if (cursor_.take("<!DOCTYPE") && (!skipDocumentType() || !skipMiscellany()))
        return false;
    XmlCursor ahead = cursor_;
    if (!ahead.take("<plist"))
        return true;
    const auto tag = takeTag();
    wrapped_ = true;
    return tag && !tag->empty;
}

bool XmlPropertyListReader::readElement() {
    const auto tag = takeTag();
    if (!tag)
        return false;
    if (tag->closing)
        return close(tag->element);
    if (tag->element == Element::Array || tag->element == Element::Dictionary)
        return open(tag->element, tag->empty);
    return readLeaf(*tag);
}

bool XmlPropertyListReader::open(Element element, bool empty) {
    const bool opened = element == Element::Array ? builder_.openArray() : builder_.openDictionary();
    return opened && (!empty || close(element));
}

bool XmlPropertyListReader::close(Element element) {
    if (element == Element::Array)
        return builder_.close(Value::Kind::Array);
    return element == Element::Dictionary && builder_.close(Value::Kind::Dictionary);
}

bool XmlPropertyListReader::readLeaf(const Tag& tag) {
    if (tag.empty)
        return addLeaf(tag.element, {});
    const auto text = text_.take(cursor_);
    if (!text)
        return false;
    const auto end = takeTag();
    return end && end->closing && end->element == tag.element && addLeaf(tag.element, *text);
}

bool XmlPropertyListReader::addLeaf(Element element, std::string_view text) {
    const auto add = [this](std::optional<Value> value) { return value && builder_.add(std::move(*value)); };
    switch (element) {
    case Element::Key:
        return builder_.addKey(text);
    case Element::String:
        return builder_.addString(text);
    case Element::True:
    case Element::False:
        return text.empty() && builder_.add(element == Element::True);
    case Element::Integer:
        return add(integerFromText(text));
    case Element::Real:
        return add(realFromText(text));
    case Element::Date: {
        const auto seconds = secondsFromDateText(text);
        return seconds && builder_.add(Value::date(*seconds));
    }
    case Element::Data: {
        const auto bytes = bytesFromBase64(text);
        return bytes && builder_.add(Value::data(*bytes));
    }
    default:
        return false;
    }
}

std::optional<XmlPropertyListReader::Tag> XmlPropertyListReader::takeTag() {
    if (!cursor_.take("<"))
        return std::nullopt;
    const bool closing = cursor_.take("/");
    const auto element = takeName();
    if (!element)
        return std::nullopt;
    Tag tag{*element, closing, false};
    if (cursor_.take(">"))
        return tag;
    if (!skipAttributes(tag) || (closing && tag.empty))
        return std::nullopt;
    return tag;
}

std::optional<XmlPropertyListReader::Element> XmlPropertyListReader::takeName() {
    switch (cursor_.peek()) {
    case 'k':
        return cursor_.take("key") ? std::optional(Element::Key) : std::nullopt;
    case 's':
        return cursor_.take("string") ? std::optional(Element::String) : std::nullopt;
    case 't':
        return cursor_.take("true") ? std::optional(Element::True) : std::nullopt;
    case 'f':
        return cursor_.take("false") ? std::optional(Element::False) : std::nullopt;
    case 'a':
        return cursor_.take("array") ? std::optional(Element::Array) : std::nullopt;
    case 'i':
        return cursor_.take("integer") ? std::optional(Element::Integer) : std::nullopt;
    case 'r':
        return cursor_.take("real") ? std::optional(Element::Real) : std::nullopt;
    case 'p':
        return cursor_.take("plist") ? std::optional(Element::PropertyList) : std::nullopt;
    case 'd':
        if (cursor_.take("dict"))
            return Element::Dictionary;
        if (cursor_.take("date"))
            return Element::Date;
        return cursor_.take("data") ? std::optional(Element::Data) : std::nullopt;
    default:
        return std::nullopt;
    }
}

/// Takes the rest of a tag after its name. Attributes, which a property list gives no meaning, are passed
/// over.
bool XmlPropertyListReader::skipAttributes(Tag& tag) {
    const char next = cursor_.peek();
    if (next != '/' && next != ' ' && next != '\t' && next != '\n' && next != '\r')
        return false;
    while (!cursor_.atEnd()) {
        if (cursor_.take(">"))
            return true;
        if (cursor_.take("/>")) {
            tag.empty = true;
            return true;
        }
        const char c = cursor_.peek();
        cursor_.skip(1);
        if (c == '<' || c == '/' || ((c == '"' || c == '\'') && !cursor_.skipPast({&c, 1})))
            return false;
    }
    return false;
}

} // namespace platform
