#include "linux/BusText.h"

#include <cstddef>
#include <cstdint>

namespace platform {

namespace {

/// How many bytes the sequence has that this byte opens; 0: none can start so.
std::size_t sequenceLength(unsigned char lead) {
    if (lead < 0x80)
        return lead != 0 ? 1 : 0;
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    if (lead >= 0xE0 && lead < 0xF0)
        return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Overlong forms, surrogates and what is above U+10FFFF show in the second byte.
bool secondByteFits(unsigned char lead, unsigned char second) {
    switch (lead) {
    case 0xE0:
        return second >= 0xA0;
    case 0xED:
        return second < 0xA0;
    case 0xF0:
        return second >= 0x90;
    case 0xF4:
        return second < 0x90;
    default:
        return true;
    }
}

} // namespace

bool isBusText(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const auto lead = static_cast<unsigned char>(text[i]);
        const std::size_t length = sequenceLength(lead);
        if (length == 0 || length > text.size() - i)
            return false;
        for (std::size_t k = 1; k < length; ++k) {
            if ((static_cast<unsigned char>(text[i + k]) & 0xC0) != 0x80)
                return false;
        }
        if (length > 1 && !secondByteFits(lead, static_cast<unsigned char>(text[i + 1])))
            return false;
        i += length;
    }
    return true;
}

} // namespace platform
