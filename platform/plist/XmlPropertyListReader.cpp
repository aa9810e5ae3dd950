#include "platform/plist/XmlPropertyListReader.h"

#include "platform/base/Base64.h"
#include "platform/plist/CalendarDate.h"
#include "platform/plist/XmlNumber.h"
#include "platform/plist/XmlProlog.h"

namespace platform {

std::optional<Value> XmlPropertyListReader::read() {
    if (!readProlog())
        return std::nullopt;
    do {
        readRun();
        if (!readElement())
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
    if (cursor_.take(xmlProlog))
        return wrapped_ = true;
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

/// Takes what most of a document is, as far as it goes: keys, booleans and strings without attributes,
/// references and comments.
[[gnu::flatten]] void XmlPropertyListReader::readRun() {
    // A copy of its own stays in registers, as all calls are inlined.
    XmlCursor cursor = cursor_;
    const bool inArray = builder_.isInArray();
    LeadIns expected = builder_.expectedLeadIns();
    do {
        if (inArray)
            cursor.skipSpace();
        else if (!readPlainKey(cursor, expected))
            break;
    } while (readPlainValue(cursor));
    cursor_ = cursor;
}

/// Takes a key with the white space around it. Records of one kind repeat these texts: where the one of the
/// last record comes again, nothing in it has to be looked at. Takes nothing where it returns false.
inline bool XmlPropertyListReader::readPlainKey(XmlCursor& cursor, LeadIns& expected) {
    if (!expected.empty() && !expected.front().empty() && cursor.take(expected.front())) {
        builder_.addExpectedKey();
        expected = expected.subspan(1);
        return true;
    }
    XmlCursor ahead = cursor;
    std::string_view key;
    ahead.skipSpace();
    if (!ahead.take("<key>") || !ahead.takePlainText(key) || !ahead.take("</key>"))
        return false;
    ahead.skipSpace();
    if (!builder_.addKey(key, cursor.textUntil(ahead)))
        return false;
    cursor = ahead;
    // The dictionary has left the expected course; what follows is compared key by key.
    expected = {};
    return true;
}

/// Takes a boolean or a string where a value is allowed. Takes nothing where it returns false.
inline bool XmlPropertyListReader::readPlainValue(XmlCursor& cursor) {
    if (const auto boolean = cursor.takeBoolean()) {
        builder_.addAllowed(ArenaValue(*boolean));
        return true;
    }
    XmlCursor ahead = cursor;
    std::string_view text;
    if (!ahead.take("<string>") || !ahead.takePlainText(text) || !ahead.take("</string>"))
        return false;
    cursor = ahead;
    builder_.addAllowed(builder_.string(text));
    return true;
}

bool XmlPropertyListReader::readElement() {
    const XmlCursor before = cursor_;
    if (!skipMiscellany())
        return false;
    if (cursor_.take("<key>"))
        return readKey(before);
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

/// Reads a key after its start tag, and what precedes its value. `before` is where the last element ended.
bool XmlPropertyListReader::readKey(const XmlCursor& before) {
    const auto text = text_.take(cursor_);
    if (!text || !closes(Element::Key))
        return false;
    const std::string_view key = text_.kept(*text);
    return skipMiscellany() && builder_.addKey(key, before.textUntil(cursor_));
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
    return text && closes(element) && addLeaf(element, *text);
}

/// Takes the end tag of the element.
bool XmlPropertyListReader::closes(Element element) {
    if (element == Element::String && cursor_.take("</string>"))
        return true;
    if (element == Element::Key && cursor_.take("</key>"))
        return true;
    return takeTag() && tagKind_ == TagKind::Closing && element_ == element;
}

bool XmlPropertyListReader::addLeaf(Element element, std::string_view text) {
    const auto add = [this](std::optional<Value> value) {
        return value && builder_.add(ArenaValue(std::move(*value)));
    };
    switch (element) {
    case Element::Key:
        return builder_.addKey(text_.kept(text), {});
    case Element::String:
        return builder_.add(builder_.string(text));
    case Element::True:
    case Element::False:
        return text.empty() && builder_.add(ArenaValue(element == Element::True));
    case Element::Integer:
        return add(integerFromText(text));
    case Element::Real:
        return add(realFromText(text));
    case Element::Date: {
        const auto seconds = secondsFromDateText(text);
        return seconds && builder_.add(ArenaValue(Value::date(*seconds)));
    }
    case Element::Data: {
        const auto bytes = bytesFromBase64(text);
        return bytes && builder_.add(builder_.data(*bytes));
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
