#include "platform/text/Format.h"

#include "platform/text/FormatConversion.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace platform {

namespace {

constexpr std::string_view conversions = "@diouxXcsfFeEgGaAp";
constexpr std::string_view lengthModifiers = "hlqLjzt";

/// Reads a format from its start to its end and takes the arguments in the order of the conversions.
class Formatter {
public:
    Formatter(std::string_view format, std::span<const FormatArgument> arguments)
        : format_(format), arguments_(arguments) {}

    std::string run() {
        while (at_ < format_.size()) {
            const std::size_t percent = std::min(format_.find('%', at_), format_.size());
            out_ += format_.substr(at_, percent - at_);
            at_ = percent;
            if (at_ < format_.size())
                convert();
        }
        return std::move(out_);
    }

private:
    void convert() {
        const std::size_t start = at_++;
        const Conversion conversion = parse();
        if (conversion.letter == '%')
            out_ += '%';
        else if (conversions.find(conversion.letter) != std::string_view::npos)
            out_ += converted(conversion, argument(conversion.position));
        else
            out_ += format_.substr(start, at_ - start);
    }

    Conversion parse() {
        Conversion conversion;
        conversion.position = position();
        parseFlags(conversion);
        parseWidth(conversion);
        parsePrecision(conversion);
        while (lengthModifiers.find(peek()) != std::string_view::npos)
            ++at_;
        conversion.letter = peek();
        if (at_ < format_.size())
            ++at_;
        return conversion;
    }

    void parseFlags(Conversion& conversion) {
        for (;; ++at_) {
            switch (peek()) {
            case '-':
                conversion.left = true;
                break;
            case '0':
                conversion.zero = true;
                break;
            case '#':
                conversion.alternate = true;
                break;
            case '+':
                conversion.sign = '+';
                break;
            case ' ':
                if (!conversion.sign)
                    conversion.sign = ' ';
                break;
            case '\'':
                break;
            default:
                return;
            }
        }
    }

    void parseWidth(Conversion& conversion) {
        const auto width = count();
        if (width && *width < 0)
            conversion.left = true;
        if (width)
            conversion.width = std::min(static_cast<std::size_t>(std::abs(*width)), maximumWidth);
    }

    void parsePrecision(Conversion& conversion) {
        if (peek() != '.')
            return;
        ++at_;
        const auto precision = count().value_or(0);
        if (precision >= 0)
            conversion.precision = std::min(static_cast<std::size_t>(precision), maximumPrecision);
    }

    /// Reads "12", or "*" for the number in the arguments.
    std::optional<long> count() {
        if (peek() != '*')
            return number();
        ++at_;
        const FormatArgument* given = argument(position());
        if (!given)
            return std::nullopt;
        constexpr auto bound = static_cast<std::int64_t>(maximumWidth);
        if (const auto* number = std::get_if<std::int64_t>(&given->argument()))
            return std::clamp(*number, -bound, bound);
        if (const auto* number = std::get_if<std::uint64_t>(&given->argument()))
            return static_cast<long>(std::min<std::uint64_t>(*number, maximumWidth));
        return std::nullopt;
    }

    /// Reads the number before a "$"; returns 0 where there is none.
    std::size_t position() {
        const std::size_t start = at_;
        const auto found = number();
        if (found && *found > 0 && peek() == '$') {
            ++at_;
            return static_cast<std::size_t>(*found);
        }
        at_ = start;
        return 0;
    }

    std::optional<long> number() {
        if (!(peek() >= '0' && peek() <= '9'))
            return std::nullopt;
        long value = 0;
        for (; peek() >= '0' && peek() <= '9'; ++at_)
            value = std::min(value * 10 + (peek() - '0'), static_cast<long>(maximumWidth));
        return value;
    }

    const FormatArgument* argument(std::size_t position) {
        const std::size_t index = position == 0 ? next_++ : position - 1;
        return index < arguments_.size() ? &arguments_[index] : nullptr;
    }

    char peek() const { return at_ < format_.size() ? format_[at_] : '\0'; }

    std::string_view format_;
    std::span<const FormatArgument> arguments_;
    std::size_t at_ = 0;
    std::size_t next_ = 0;
    std::string out_;
};

} // namespace

FormatArgument::FormatArgument(const char* text) {
    if (text)
        argument_ = std::string_view(text);
}

FormatArgument::FormatArgument(const Value* object) {
    if (object)
        argument_ = object;
}

FormatArgument::FormatArgument(const std::string* text) {
    if (text)
        argument_ = std::string_view(*text);
}

FormatArgument::FormatArgument(const void* address)
    : argument_(static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(address))) {}

FormatArgument::FormatArgument(const Array& object) : argument_(Value(object)) {}

FormatArgument::FormatArgument(const Array* object) {
    if (object)
        argument_ = Value(*object);
}

FormatArgument::FormatArgument(const Dictionary& object) : argument_(Value(object)) {}

FormatArgument::FormatArgument(const Dictionary* object) {
    if (object)
        argument_ = Value(*object);
}

FormatArgument::FormatArgument(const MutableArray& object) : argument_(Value(object.copy())) {}

FormatArgument::FormatArgument(const MutableArray* object) {
    if (object)
        argument_ = Value(object->copy());
}

FormatArgument::FormatArgument(const MutableDictionary& object) : argument_(Value(object.copy())) {}

FormatArgument::FormatArgument(const MutableDictionary* object) {
    if (object)
        argument_ = Value(object->copy());
}

FormatArgument::~FormatArgument() = default;

std::string formatString(std::string_view format, std::initializer_list<FormatArgument> arguments) {
    return Formatter(format, std::span(arguments.begin(), arguments.size())).run();
}

} // namespace platform
