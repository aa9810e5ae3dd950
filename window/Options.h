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
    /// What its value is called; empty for an option that takes none.
    std::string_view value;
    /// May take several lines; no full stop.
    std::string_view help;
};

/// What the command line asks for.
struct Options {
    bool help = false;
    bool version = false;
    /// Where no window can be opened, the terminal does.
    bool orTerminal = false;
    /// None: as the system has it.
    std::optional<bool> dark;
    std::optional<double> textScale;
    /// Empty: the environment's or the user's own.
    std::string deviceRoot;
    /// Empty: open the window.
    std::string screenshots;
    /// Why the arguments cannot be understood; empty when they can.
    std::string error;

    static Options parse(const std::vector<std::string>& arguments);
    /// Every option, in the order of the help.
    static std::span<const OptionText> texts();
    static std::string usage();
};

} // namespace wardlock::window
