#pragma once

#include <optional>
#include <string>
#include <vector>

namespace wardlock::app {

/// What the command line asks for.
struct Options {
    bool help = false;
    bool version = false;
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
    static const char* usage();
};

} // namespace wardlock::app
