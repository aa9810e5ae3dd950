#include "tests/robustness/faults/shim/Calls.h"

#include <array>
#include <cstdio>

namespace wardlock::test::shim {

std::string octal(unsigned number) {
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), "%o", number);
    return text.data();
}

std::string hexadecimal(const void* bytes, std::size_t count) {
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    text.reserve(count * 2);
    for (const auto* byte = static_cast<const unsigned char*>(bytes); count > 0; ++byte, --count) {
        text += digits[*byte >> 4];
        text += digits[*byte & 15];
    }
    return text;
}

} // namespace wardlock::test::shim
