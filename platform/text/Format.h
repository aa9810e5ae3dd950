#pragma once

#include "../base/Export.h"
#include "../values/Value.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace platform {

/// One argument of a format: a number, an address ("%p"), a text, or an object ("%@"). Objects may be passed
/// by pointer or as std::optional; an absent one prints as "(null)".
class WARDLOCK_API FormatArgument {
public:
    template <std::integral T>
    FormatArgument(T number)
        : argument_(static_cast<std::conditional_t<std::unsigned_integral<T>, std::uint64_t, std::int64_t>>(
              number)),
          bytes_(sizeof(T) < sizeof(int) ? sizeof(int) : sizeof(T)) {}
    FormatArgument(double number) : argument_(number) {}
    FormatArgument(std::string_view text) : argument_(text) {}
    FormatArgument(const std::string& text) : argument_(std::string_view(text)) {}
    FormatArgument(const Value& object) : argument_(&object) {}
    FormatArgument(std::nullptr_t) {}
    // The rest is out of line: inlined at each call it costs code, and gcc 12 takes the object for
    // uninitialised.
    FormatArgument(const char* text);
    FormatArgument(const std::string* text);
    FormatArgument(const void* address);
    FormatArgument(const Value* object);
    FormatArgument(const Array& object);
    FormatArgument(const Array* object);
    FormatArgument(const Dictionary& object);
    FormatArgument(const Dictionary* object);
    FormatArgument(const MutableArray& object);
    FormatArgument(const MutableArray* object);
    FormatArgument(const MutableDictionary& object);
    FormatArgument(const MutableDictionary* object);
    template <class T>
    FormatArgument(const std::optional<T>& object)
        : FormatArgument(object ? FormatArgument(*object) : FormatArgument(nullptr)) {}
    ~FormatArgument();

    using Argument = std::variant<std::monostate, std::int64_t, std::uint64_t, double, std::string_view,
                                  const Value*, Value>;
    const Argument& argument() const { return argument_; }
    /// Returns the bytes of an integer as it was passed: an unsigned conversion of a negative one needs them.
    std::size_t bytes() const { return bytes_; }

private:
    Argument argument_;
    std::size_t bytes_ = sizeof(std::int64_t);
};

/// Formats as the platform's strings do, independent of the process's locale:
/// - "%@" prints an object's description;
/// - the printf conversions are d i u o x X c s f F e E g G a A p %;
/// - flags, width, precision and positions ("%2$@") have their usual effect;
/// - length modifiers are accepted without effect, since arguments know their size.
///
/// A conversion without an argument prints "(null)". One that does not fit its argument prints the argument
/// as "%@" would. Widths and precisions are bounded.
WARDLOCK_API std::string formatString(std::string_view format,
                                      std::initializer_list<FormatArgument> arguments);

template <class... Args>
std::string stringWithFormat(std::string_view format, const Args&... arguments) {
    return formatString(format, {FormatArgument(arguments)...});
}

/// Returns the platform's description of a value:
/// - a string bare at the top, quoted inside a collection where it needs quotes;
/// - collections in parentheses and braces, one element a line;
/// - booleans as 1 and 0, data in hexadecimal, dates in UTC.
///
/// Very deep and very large collections are cut short ("...").
WARDLOCK_API std::string description(const Value& value);

} // namespace platform
