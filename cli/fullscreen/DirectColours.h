#pragma once

#include "cli/fullscreen/Palette.h"

#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// 24-bit colours for a terminal whose description has 256: the library sends colours by number only, so a
/// few numbers of the description get sequences that name the roles' own colours on each ground.

/// Returns the number that stands for a role's colour of text, or of what is behind it.
constexpr short directForeground(Ground ground, std::size_t role) {
    return static_cast<short>(16 + 2 * (static_cast<std::size_t>(ground) * roleCount + role));
}
constexpr short directBackground(Ground ground, std::size_t role) {
    return static_cast<short>(directForeground(ground, role) + 1);
}

/// Returns a compiled description with these numbers; none where it is of no known form, or has fewer than
/// 256 colours.
std::optional<std::string> withDirectColours(std::string_view description);

/// While this exists, the library finds such a description of the terminal, if there is one.
class DirectColours {
public:
    DirectColours();
    ~DirectColours();
    DirectColours(const DirectColours&) = delete;
    DirectColours& operator=(const DirectColours&) = delete;

    bool areFound() const { return found_; }

private:
    std::optional<std::string> before_;
    bool found_ = false;
};

} // namespace wardlock::cli
