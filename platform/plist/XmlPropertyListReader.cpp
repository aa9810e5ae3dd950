#include "platform/plist/XmlPropertyListReader.h"

#include "platform/base/Base64.h"
#include "platform/plist/CalendarDate.h"
#include "platform/plist/XmlNumber.h"

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
        const bool closed = takeTag() && tagKind_ == TagKind::Closing && element_ == Element::PropertyList;
        if (!closed || !skipMiscellany())
            return std::nullopt;
    }
    return cursor_.atEnd() ? builder_.take() : std::nullopt;
}

/// Skips white space, comments and processing instructions. Returns false for one without an end.
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

/// Reads what precedes the value: one DOCTYPE at most, and the <plist> tag, which may be missing.
bool XmlPropertyListReader::readProlog() {
    if (!skipMiscellany())
        return false;
    if (cursor_.take("<!DOCTYPE") && (!skipDocumentType() || !skipMiscellany()))
        return false;
    XmlCursor ahead = cursor_;
    if (!ahead.take("<plist"))
        return true;
    wrapped_ = true;
    return takeTag() && tagKind_ == TagKind::Opening;
}

bool XmlPropertyListReader::readElement() {
    // Most of a document is this: the next key of a record like the last one, a boolean.
    if (cursor_.take("<key>")) {
        const std::string_view expected = builder_.expectedKey();
        if (expected.empty() || !cursor_.take(expected, "</key>"))
            return readLeaf(Element::Key);
        builder_.addExpectedKey();
        return true;
    }
    if (cursor_.take("<true/>"))
        return builder_.add(true);
    if (cursor_.take("<false/>"))
        return builder_.add(false);
    if (cursor_.take("<string>"))
        return readLeaf(Element::String);
    if (!takeTag())
        return false;
    if (tagKind_ == TagKind::Closing)
        return close(element_);
    const bool empty = tagKind_ == TagKind::Empty;
    if (containerOf(element_))
        return open(element_, empty);
    return empty ? addLeaf(element_, {}) : readLeaf(element_);
}

bool XmlPropertyListReader::open(Element element, bool empty) {
    return builder_.open(*containerOf(element)) && (!empty || close(element));
}

bool XmlPropertyListReader::close(Element element) {
    const auto container = containerOf(element);
    return container && builder_.close(*container);
}

std::optional<PropertyListBuilder::Container> XmlPropertyListReader::containerOf(Element element) {
    switch (element) {
    case Element::Array:
        return PropertyListBuilder::Container::Array;
    case Element::Dictionary:
        return PropertyListBuilder::Container::Dictionary;
    case Element::PropertyList:
        return PropertyListBuilder::Container::PropertyList;
    default:
        return std::nullopt;
    }
}

bool XmlPropertyListReader::readLeaf(Element element) {
    const auto text = text_.take(cursor_);
    if (!text)
        return false;
    if (element == Element::String && cursor_.take("</string>"))
        return builder_.addString(*text);
    if (element == Element::Key && cursor_.take("</key>"))
        return builder_.addKey(*text);
    const bool closed = takeTag() && tagKind_ == TagKind::Closing && element_ == element;
    return closed && addLeaf(element, *text);
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

bool XmlPropertyListReader::takeTag() {
    if (!cursor_.take("<"))
        return false;
    tagKind_ = cursor_.take("/") ? TagKind::Closing : TagKind::Opening;
    element_ = takeName();
    if (element_ == Element::None || cursor_.take(">"))
        return element_ != Element::None;
    if (tagKind_ == TagKind::Opening)
        return skipAttributes();
    cursor_.skipSpace();
    return cursor_.take(">");
}

XmlPropertyListReader::Element XmlPropertyListReader::takeName() {
    switch (cursor_.peek()) {
    case 'k':
        return cursor_.take("key") ? Element::Key : Element::None;
    case 's':
        return cursor_.take("string") ? Element::String : Element::None;
    case 't':
        return cursor_.take("true") ? Element::True : Element::None;
    case 'f':
        return cursor_.take("false") ? Element::False : Element::None;
    case 'a':
        return cursor_.take("array") ? Element::Array : Element::None;
    case 'i':
        return cursor_.take("integer") ? Element::Integer : Element::None;
    case 'r':
        return cursor_.take("real") ? Element::Real : Element::None;
    case 'p':
        return cursor_.take("plist") ? Element::PropertyList : Element::None;
    case 'd':
        if (cursor_.take("dict"))
            return Element::Dictionary;
        if (cursor_.take("date"))
            return Element::Date;
        return cursor_.take("data") ? Element::Data : Element::None;
    default:
        return Element::None;
    }
}

/// Takes the rest of a start tag after its name. Attributes have no meaning in a property list and are
/// skipped.
bool XmlPropertyListReader::skipAttributes() {
    const char next = cursor_.peek();
    if (next != '/' && next != ' ' && next != '\t' && next != '\n' && next != '\r')
        return false;
    while (!cursor_.atEnd()) {
        if (cursor_.take(">"))
            return true;
        if (cursor_.take("/>")) {
            tagKind_ = TagKind::Empty;
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
