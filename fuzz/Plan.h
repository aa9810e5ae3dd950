#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace wardlock::fuzz {

/// Decisions taken from an input's bytes, from the front. Once they are used up, every further decision is
/// the first choice: no, 0, nothing.
class Plan {
public:
    explicit Plan(std::string_view bytes) : rest_(bytes) {}

    bool isOver() const { return rest_.empty(); }
    bool yes() { return (number<unsigned char>() & 1) != 0; }
    /// Returns 0 to `bound` - 1; `bound` is at most 256.
    std::size_t below(std::size_t bound) { return number<unsigned char>() % bound; }
    template <class Choices>
    auto choice(const Choices& choices) {
        return choices[below(std::size(choices))];
    }
    /// Returns any bit pattern of the type.
    template <class T>
    T number() {
        static_assert(std::is_arithmetic_v<T>);
        T value{};
        const std::string_view bytes = take(sizeof value);
        std::memcpy(&value, bytes.data(), bytes.size());
        return value;
    }
    /// Returns as many bytes as the next byte's value, at most 255.
    std::string bytes() { return std::string(take(number<unsigned char>())); }
    std::string_view rest() { return take(rest_.size()); }

private:
    std::string_view take(std::size_t count) {
        const std::string_view taken = rest_.substr(0, count);
        rest_.remove_prefix(taken.size());
        return taken;
    }

    std::string_view rest_;
};

} // namespace wardlock::fuzz
