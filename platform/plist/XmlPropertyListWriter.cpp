#include "platform/plist/XmlPropertyListWriter.h"

#include "platform/base/Base64.h"
#include "platform/plist/CalendarDate.h"
#include "platform/plist/PropertyListError.h"
#include "platform/plist/XmlEscape.h"
#include "platform/plist/XmlNumber.h"
#include "platform/plist/XmlProlog.h"
#include "platform/plist/XmlSize.h"

#include <algorithm>

namespace platform {

namespace {

constexpr char epilog[] = "</plist>\n";

/// Levels that room is made for at first.
constexpr std::size_t typicalLevels = 4;

/// A text is estimated when it has become longer than this.
constexpr std::size_t longestShortText = 4096;

/// A little more than the estimate, for what it leaves out.
std::size_t expectedLength(const Value& root, std::size_t most) {
    const std::size_t estimate = xmlSizeEstimate(root, most);
    return sizeof xmlProlog + sizeof epilog + estimate + estimate / 16;
}

} // namespace

XmlPropertyListWriter::XmlPropertyListWriter(const Value& root, Bounds bounds)
    : root_(root), bounds_(bounds) {
    frames_.reserve(typicalLevels);
    last_.reserve(typicalLevels);
}

std::error_code XmlPropertyListWriter::write() {
    text_.put(xmlProlog);
    writeElement(root_, {0});
    writeUntil(longestShortText);
    if (!frames_.empty())
        text_.expect(expectedLength(root_, bounds_.bytes));
    // A document that is too large is not written to its end: it may be larger than the memory.
    writeUntil(bounds_.bytes);
    text_.put(epilog);
    if (tooDeep_)
        return PropertyListError::TooDeep;
    return text_.size() > bounds_.bytes ? make_error_code(PropertyListError::TooLarge) : std::error_code();
}

/// Writes elements to the last one, or until the text is longer than `length`.
void XmlPropertyListWriter::writeUntil(std::size_t length) {
    while (!frames_.empty() && !tooDeep_ && text_.size() <= length)
        writeNext();
}

/// Writes the next element of the innermost container, or its end.
void XmlPropertyListWriter::writeNext() {
    Frame& frame = frames_.back();
    if (frame.next == frame.end)
        return close();
    if (frame.keys)
        writeLeadIn(frame);
    ++frame.place;
    writeElement(*frame.next++, frame.keys ? StringBuilder::Tabs{0} : indentation());
}

void XmlPropertyListWriter::open(const Value& container) {
    tooDeep_ = frames_.size() >= bounds_.levels;
    const bool hasFollower =
        !frames_.empty() && (frames_.back().hasFollower || frames_.back().next != frames_.back().end);
    if (container.is(Value::Kind::Array)) {
        const Array& array = container.array();
        if (array.empty())
            return text_.put("<array/>\n");
        text_.put("<array>\n");
        frames_.push_back({array.begin(), array.end(), nullptr, 0, false, hasFollower});
    } else {
        const Dictionary& dictionary = container.dictionary();
        if (dictionary.empty())
            return text_.put("<dict/>\n");
        text_.put("<dict>\n");
        const Value* const first = dictionary.values();
        const KeySet* const keys = dictionary.keys();
        const bool plain = needsNoEscape(keys->text());
        frames_.push_back({first, first + dictionary.size(), keys, 0, plain, hasFollower});
    }
    if (last_.size() < frames_.size())
        last_.push_back({nullptr, std::pmr::vector<Piece>(scratch_.get())});
}

void XmlPropertyListWriter::close() {
    const bool dictionary = frames_.back().keys;
    frames_.pop_back();
    if (dictionary)
        text_.put(indentation(), "</dict>\n");
    else
        text_.put(indentation(), "</array>\n");
}

/// Writes a key, and the indentation of its value.
void XmlPropertyListWriter::writeLeadIn(const Frame& frame) {
    LastDictionary& last = last_[frames_.size() - 1];
    if (last.keys == frame.keys && frame.place < last.leadIns.size()) {
        const Piece& before = last.leadIns[frame.place];
        return text_.repeat(before.start, before.length);
    }
    if (frame.place == 0) {
        last.keys = frame.keys;
        last.leadIns.clear();
        last.leadIns.reserve(frame.hasFollower ? frame.keys->size() : 0);
    }
    const std::size_t start = text_.size();
    const std::string_view key = (*frame.keys)[frame.place];
    const StringBuilder::Tabs tabs = indentation();
    if (frame.hasPlainKeys || needsNoEscape(key))
        text_.put(tabs, "<key>", key, "</key>\n", tabs);
    else
        text_.put(tabs, "<key>", std::string_view(escaped(key)), "</key>\n", tabs);
    if (frame.hasFollower)
        last.leadIns.push_back({start, text_.size() - start});
}

/// Writes an element after the indentation `before`, which a lead-in has already.
void XmlPropertyListWriter::writeElement(const Value& value, StringBuilder::Tabs before) {
    switch (value.kind()) {
    case Value::Kind::Boolean:
        if (value.boolean())
            return text_.put(before, "<true/>\n");
        return text_.put(before, "<false/>\n");
    case Value::Kind::String:
        return writeString(value.string(), before);
    default:
        text_.put(before);
        return writeOther(value);
    }
}

void XmlPropertyListWriter::writeOther(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Data:
        return writeData(value.data());
    case Value::Kind::Array:
    case Value::Kind::Dictionary:
        return open(value);
    default:
        return writeNumber(value);
    }
}

void XmlPropertyListWriter::writeString(std::string_view text, StringBuilder::Tabs before) {
    if (needsNoEscape(text))
        text_.put(before, "<string>", text, "</string>\n");
    else
        text_.put(before, "<string>", std::string_view(escaped(text)), "</string>\n");
}

/// Writes dates too, which are numbers of seconds.
void XmlPropertyListWriter::writeNumber(const Value& value) {
    std::string element;
    if (value.is(Value::Kind::Integer)) {
        element = "<integer>";
        appendInteger(element, value);
        element += "</integer>\n";
    } else if (value.is(Value::Kind::Real)) {
        element = "<real>";
        appendReal(element, value.real());
        element += "</real>\n";
    } else {
        element = "<date>";
        appendDateText(element, value.date());
        element += "</date>\n";
    }
    text_.put(std::string_view(element));
}

/// Writes base64 on lines of its own. Indentation counts against the width of a line, and stops growing where
/// it would leave no room.
void XmlPropertyListWriter::writeData(std::string_view bytes) {
    constexpr std::size_t lineWidth = 76;
    constexpr std::size_t tabWidth = 8;
    constexpr std::size_t deepestIndent = 8;
    const std::size_t tabs = std::min(frames_.size(), deepestIndent);
    const std::size_t bytesPerLine = (lineWidth - tabWidth * tabs) / 4 * 3;
    text_.put("<data>\n");
    for (std::size_t at = 0; at < bytes.size(); at += bytesPerLine) {
        std::string line(tabs, '\t');
        appendBase64(line, bytes.substr(at, bytesPerLine));
        line += '\n';
        text_.put(std::string_view(line));
    }
    text_.put(indentation(), "</data>\n");
}

} // namespace platform
