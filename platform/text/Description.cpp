#include "platform/base/CalendarTime.h"
#include "platform/text/Format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <limits>

namespace platform {

namespace {

constexpr std::size_t maximumDepth = 64;
// Shared containers can name more elements than fit any memory.
constexpr std::size_t maximumSize = std::size_t{1} << 20;
constexpr std::string_view cutShort = "...";
constexpr std::string_view hexDigits = "0123456789abcdef";

template <class Number>
std::string text(Number number) {
    std::array<char, 64> buffer;
    return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr};
}

/// Returns "2001-01-01 00:00:00 +0000", whole seconds.
std::string dateText(double secondsSince2001) {
    using namespace std::chrono;
    constexpr auto earliest = static_cast<double>((firstCalendarSecond - dateReference).count());
    constexpr auto latest = static_cast<double>((lastCalendarSecond - dateReference).count());
    const double whole = std::floor(secondsSince2001);
    if (!(whole >= earliest && whole <= latest))
        return text(secondsSince2001);
    const sys_seconds time = dateReference + seconds(static_cast<long long>(whole));
    std::string date;
    appendCalendarTime(date, time, ' ', " +0000");
    return date;
}

/// Returns "<01020304 0506>".
std::string dataText(std::string_view bytes) {
    constexpr std::size_t group = 4;
    std::string out = "<";
    for (std::size_t i = 0; i < bytes.size() && out.size() < maximumSize; ++i) {
        if (i != 0 && i % group == 0)
            out += ' ';
        const auto byte = static_cast<unsigned char>(bytes[i]);
        out += hexDigits[byte >> 4];
        out += hexDigits[byte & 15];
    }
    return out + ">";
}

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

void appendEscaped(std::string& out, char c) {
    switch (c) {
    case '"':
        out += "\\\"";
        break;
    case '\\':
        out += "\\\\";
        break;
    case '\n':
        out += "\\n";
        break;
    case '\r':
        out += "\\r";
        break;
    case '\t':
        out += "\\t";
        break;
    default:
        if (const auto byte = static_cast<unsigned char>(c); byte < 0x20 || byte == 0x7f) {
            out += "\\U00";
            out += hexDigits[byte >> 4];
            out += hexDigits[byte & 15];
        } else {
            out += c;
        }
    }
}

/// Returns a string as it is shown inside a collection. Letters beyond ASCII stay readable.
std::string elementText(std::string_view string) {
    if (!string.empty() && std::all_of(string.begin(), string.end(), isPlain))
        return std::string(string);
    std::string out = "\"";
    for (const char c : string)
        appendEscaped(out, c);
    return out + "\"";
}

std::string scalarText(const Value& value) {
    switch (value.kind()) {
    case Value::Kind::Boolean:
        return value.boolean() ? "1" : "0";
    case Value::Kind::Integer:
        return value.isUnsigned() ? text(value.unsignedInteger()) : text(value.integer());
    case Value::Kind::Real:
        return text(value.real());
    case Value::Kind::Data:
        return dataText(value.data());
    case Value::Kind::Date:
        return dateText(value.date());
    default:
        return {};
    }
}

/// Writes one value tree; a nested collection starts on its line with the indentation of its own level.
class DescriptionWriter {
public:
    void write(const Value& value, std::size_t level) {
        if (value.kind() == Value::Kind::String)
            out_ += elementText(value.string());
        else if (value.kind() == Value::Kind::Array)
            writeArray(value.array(), level);
        else if (value.kind() == Value::Kind::Dictionary)
            writeDictionary(value.dictionary(), level);
        else
            out_ += scalarText(value);
    }
    std::string take() { return std::move(out_); }

private:
    bool isFull(std::size_t level) const { return level >= maximumDepth || out_.size() >= maximumSize; }
    void indent(std::size_t level) { out_.append(4 * level, ' '); }

    void writeArray(const Array& array, std::size_t level) {
        indent(level);
        out_ += "(\n";
        for (std::size_t i = 0; i < array.size(); ++i) {
            indent(level + 1);
            if (isFull(level)) {
                out_ += std::string(cutShort) + "\n";
                break;
            }
            write(array[i], level + 1);
            out_ += i + 1 < array.size() ? ",\n" : "\n";
        }
        indent(level);
        out_ += ")";
    }

    void writeDictionary(const Dictionary& dictionary, std::size_t level) {
        indent(level);
        out_ += "{\n";
        for (const auto& [key, value] : dictionary) {
            indent(level + 1);
            if (isFull(level)) {
                out_ += std::string(cutShort) + "\n";
                break;
            }
            out_ += elementText(key) + " = ";
            write(value, level + 1);
            out_ += ";\n";
        }
        indent(level);
        out_ += "}";
    }

    std::string out_;
};

} // namespace

std::string description(const Value& value) {
    if (value.kind() == Value::Kind::String)
        return std::string(value.string());
    DescriptionWriter writer;
    writer.write(value, 0);
    return writer.take();
}

} // namespace platform
