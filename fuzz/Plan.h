#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

namespace wardlock::fuzz {

/// Decisions taken out of an input's bytes, from the front. When they have run out, every further decision is
/// the first choice: no, 0, nothing.
class Plan {
public:
    explicit Plan(std::string_view bytes) : rest_(bytes) {}

    bool isOver() const { return rest_.empty(); }
    bool yes() { return (number<unsigned char>() & 1) != 0; }
    /// One of 0 to `bound` - 1, of at most 256.
    std::size_t below(std::size_t bound) { return number<unsigned char>() % bound; }
    template <class Choices>
    auto choice(const Choices& choices) {
        return choices[below(std::size(choices))];
    }
    /// Any bit pattern of the type's.
    template <class T>
    T number() {
        static_assert(std::is_arithmetic_v<T>);
        T value{};
        const std::string_view bytes = take(sizeof value);
        std::memcpy(&value, bytes.data(), bytes.size());
        return value;
    }
    /// As many bytes as the next one says, at most 255.
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
