#pragma once

#include <string>

namespace wardlock::cli {

/// Emphasis of text in a terminal; none without colours.
struct TextStyle {
    bool colours = false;

    std::string bold(const std::string& text) const { return wrap("1", text); }
    std::string dim(const std::string& text) const { return wrap("2", text); }
    std::string green(const std::string& text) const { return wrap("32", text); }
    std::string red(const std::string& text) const { return wrap("31", text); }
    std::string blue(const std::string& text) const { return wrap("34", text); }

private:
    std::string wrap(const char* code, const std::string& text) const {
        return colours && !text.empty() ? std::string("\x1B[") + code + 'm' + text + "\x1B[0m" : text;
    }
};

} // namespace wardlock::cli
