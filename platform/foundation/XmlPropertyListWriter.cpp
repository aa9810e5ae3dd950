#include "platform/foundation/XmlPropertyListWriter.h"

#include "platform/foundation/Base64.h"
#include "platform/foundation/CalendarDate.h"
#include "platform/foundation/XmlEscape.h"
#include "platform/foundation/XmlNumber.h"
#include "platform/foundation/XmlSize.h"

#include <algorithm>

namespace platform {

namespace {

constexpr std::string_view prolog = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
                                    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
                                    "<plist version=\"1.0\">\n";
constexpr std::string_view epilog = "</plist>\n";

} // namespace

std::string XmlPropertyListWriter::write(const Value& root) {
    // A little more than the estimate, for what it leaves out.
    const std::size_t estimate = xmlSizeEstimate(root);
    text_.reserve(prolog.size() + estimate + estimate / 16 + epilog.size());
    text_ += prolog;
    writeElement(root);
    while (!frames_.empty()) {
        Frame& frame = frames_.back();
        if (frame.next == frame.end) {
            const bool dictionary = frame.keys;
            frames_.pop_back();
            line(dictionary ? "</dict>\n" : "</array>\n");
            continue;
        }
        if (frame.keys) {
            indent();
            text_ += "<key>";
            appendEscaped(text_, (*frame.keys)[frame.place++]);
            text_ += "</key>\n";
        }
        writeElement(*frame.next++);
    }
    text_ += epilog;
    return std::move(text_);
}

void XmlPropertyListWriter::open(const Value& container) {
    if (container.is(Value::Kind::Array)) {
        const Array& array = container.array();
        line(array.empty() ? "<array/>\n" : "<array>\n");
        if (!array.empty())
            frames_.push_back({array.begin(), array.end(), nullptr, 0});
    } else {
        const Dictionary& dictionary = container.dictionary();
        line(dictionary.empty() ? "<dict/>\n" : "<dict>\n");
        if (!dictionary.empty()) {
            const Value* first = &(*dictionary.begin()).value;
            frames_.push_back({first, first + dictionary.size(), dictionary.keys().get(), 0});
        }
    }
}

void XmlPropertyListWriter::writeElement(const Value& value) {
    const auto wrap = [this](std::string_view open, const auto& appendContent, std::string_view close) {
        line(open);
        appendContent();
        text_ += close;
    };
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return line(value.boolean() ? "<true/>\n" : "<false/>\n");
    case Value::Kind::Integer:
        return wrap(
            "<integer>", [&] { appendInteger(text_, value); }, "</integer>\n");
    case Value::Kind::Real:
        return wrap(
            "<real>", [&] { appendReal(text_, value.real()); }, "</real>\n");
    case Value::Kind::Date:
        return wrap(
            "<date>", [&] { appendDateText(text_, value.date()); }, "</date>\n");
    case Value::Kind::String:
        return wrap(
            "<string>", [&] { appendEscaped(text_, value.string()); }, "</string>\n");
    case Value::Kind::Data:
        return writeData(value.data());
    case Value::Kind::Array:
    case Value::Kind::Dictionary:
        return open(value);
    }
}

void XmlPropertyListWriter::line(std::string_view element) {
    indent();
    text_ += element;
}

/// Base64 on lines of its own. Indentation counts against the width of a line, and stops growing where it
/// would leave no room.
void XmlPropertyListWriter::writeData(std::string_view bytes) {
    constexpr std::size_t lineWidth = 76;
    constexpr std::size_t tabWidth = 8;
    constexpr std::size_t deepestIndent = 8;
    const std::size_t tabs = std::min(frames_.size(), deepestIndent);
    const std::size_t bytesPerLine = (lineWidth - tabWidth * tabs) / 4 * 3;
    line("<data>\n");
    for (std::size_t at = 0; at < bytes.size(); at += bytesPerLine) {
        text_.append(tabs, '\t');
        appendBase64(text_, bytes.substr(at, bytesPerLine));
        text_ += '\n';
    }
    line("</data>\n");
}

} // namespace platform
