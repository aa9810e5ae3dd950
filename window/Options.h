#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::window {

/// An option of the command line, for help and manual page.
struct OptionText {
    std::string_view name;
    /// The name of its value; empty for an option without one.
    std::string_view value;
    /// May be several lines; no full stop.
    std::string_view help;
};

/// What the command line asks for.
struct Options {
    bool help = false;
    bool version = false;
    /// Where a window cannot be opened, runs Settings in the terminal.
    bool orTerminal = false;
    /// The message bus has started this process.
    bool activated = false;
    /// None: as on the desktop.
    std::optional<bool> dark;
    std::optional<double> textScale;
    bool highContrast = false;
    bool reducedMotion = false;
    /// Empty: the environment's or the user's own.
    std::string deviceRoot;
    /// Empty: open the window.
    std::string screenshots;
    /// The reason why the arguments are wrong; empty when they are right.
    std::string error;

    static Options parse(const std::vector<std::string>& arguments);
    /// Returns every option, in the order of the help.
    static std::span<const OptionText> texts();
    static std::string usage();
};

} // namespace wardlock::window
