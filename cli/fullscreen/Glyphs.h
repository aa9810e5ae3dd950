#pragma once

#include <string_view>

namespace wardlock::cli {

/// Signs of the screen, each as many columns wide in ASCII as in UTF-8.
struct Glyphs {
    std::string_view back = "\u2039";
    std::string_view more = "\u203A";
    std::string_view mark = "\u2713";
    std::string_view rule = "\u2500";
    std::string_view side = "\u2502";
    std::string_view topLeft = "\u256D";
    std::string_view topRight = "\u256E";
    std::string_view bottomLeft = "\u2570";
    std::string_view bottomRight = "\u256F";
    std::string_view on = "\u2501\u2501\u25CF";
    std::string_view off = "\u25CB\u2500\u2500";
    std::string_view knob = "\u25CF";
    std::string_view filled = "\u2501";
    std::string_view dot = "\u25CF";
    std::string_view emptyDot = "\u25CB";
    std::string_view track = "\u2502";
    std::string_view thumb = "\u2588";
    std::string_view upDown = "\u2191\u2193";
    std::string_view leftRight = "\u2190\u2192";

    static constexpr Glyphs ascii() {
        return {"<",   ">", "x", "-", "|", "+", "+", "+",  "+", "[x]",
                "[ ]", "o", "=", "*", "_", "|", "#", "^v", "<>"};
    }
};

} // namespace wardlock::cli
