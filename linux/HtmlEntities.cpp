#include "linux/HtmlEntities.h"

#include "platform/foundation/Utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>

namespace platform {
namespace {

struct Entity {
    std::string_view name;
    char32_t character;
};

constexpr std::array Entities{
    Entity{"amp", '&'},      Entity{"lt", '<'},        Entity{"gt", '>'},       Entity{"quot", '"'},
    Entity{"apos", '\''},    Entity{"nbsp", 0xA0},     Entity{"copy", 0xA9},    Entity{"reg", 0xAE},
    Entity{"trade", 0x2122}, Entity{"hellip", 0x2026}, Entity{"mdash", 0x2014}, Entity{"ndash", 0x2013},
    Entity{"lsquo", 0x2018}, Entity{"rsquo", 0x2019},  Entity{"ldquo", 0x201C}, Entity{"rdquo", 0x201D},
    Entity{"sbquo", 0x201A}, Entity{"bdquo", 0x201E},  Entity{"laquo", 0xAB},   Entity{"raquo", 0xBB},
    Entity{"bull", 0x2022},  Entity{"middot", 0xB7},   Entity{"times", 0xD7},   Entity{"divide", 0xF7},
    Entity{"deg", 0xB0},     Entity{"plusmn", 0xB1},   Entity{"sect", 0xA7},    Entity{"para", 0xB6},
    Entity{"euro", 0x20AC},  Entity{"pound", 0xA3},    Entity{"yen", 0xA5},     Entity{"cent", 0xA2},
    Entity{"larr", 0x2190},  Entity{"uarr", 0x2191},   Entity{"rarr", 0x2192},  Entity{"darr", 0x2193},
    Entity{"auml", 0xE4},    Entity{"ouml", 0xF6},     Entity{"uuml", 0xFC},    Entity{"Auml", 0xC4},
    Entity{"Ouml", 0xD6},    Entity{"Uuml", 0xDC},     Entity{"szlig", 0xDF},   Entity{"eacute", 0xE9},
    Entity{"egrave", 0xE8},  Entity{"ecirc", 0xEA},    Entity{"agrave", 0xE0},  Entity{"aacute", 0xE1},
    Entity{"ccedil", 0xE7},  Entity{"ntilde", 0xF1},   Entity{"oacute", 0xF3},  Entity{"iacute", 0xED},
    Entity{"uacute", 0xFA},  Entity{"aring", 0xE5},    Entity{"aelig", 0xE6},   Entity{"oslash", 0xF8},
};
constexpr std::size_t LongestReference = 12;

std::optional<char32_t> numbered(std::string_view digits) {
    int base = 10;
    if (digits.starts_with('x') || digits.starts_with('X')) {
        base = 16;
        digits.remove_prefix(1);
    }
    std::uint32_t number = 0;
    const char* end = digits.data() + digits.size();
    const auto [stop, error] = std::from_chars(digits.data(), end, number, base);
    if (digits.empty() || stop != end || error != std::errc())
        return std::nullopt;
    return number;
}

std::optional<char32_t> referenced(std::string_view reference) {
    if (reference.starts_with('#'))
        return numbered(reference.substr(1));
    const auto found = std::find_if(Entities.begin(), Entities.end(),
                                    [reference](const Entity& entity) { return entity.name == reference; });
    return found == Entities.end() ? std::nullopt : std::optional(found->character);
}

} // namespace

std::string withoutEntities(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t end =
            text[i] == '&' ? text.substr(0, i + LongestReference).find(';', i) : text.npos;
        const auto character = end == text.npos ? std::nullopt : referenced(text.substr(i + 1, end - i - 1));
        if (character) {
            appendUtf8(*character, plain);
            i = end + 1;
        } else {
            plain.push_back(text[i]);
            ++i;
        }
    }
    return plain;
}

} // namespace platform
