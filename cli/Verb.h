#pragma once

#include "cli/Arguments.h"
#include "cli/CommandError.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// One thing the command does. Help texts and manual pages are made from these descriptions, so that there is
/// one text for both.
struct Verb {
    /// The words that name it: "status", "plist dump".
    std::string_view name;
    /// The operands as the synopsis shows them; empty when it takes none.
    std::string_view operands;
    /// One line, without a full stop.
    std::string_view summary;
    /// Paragraphs, wrapped at 80 columns, ending in a line feed.
    std::string_view description;
    std::span<const Option> options;
    std::size_t fewestOperands;
    std::size_t mostOperands;
    /// Failures are thrown as CommandError; the result is for verbs whose outcome is more than done.
    ExitCode (*run)(const Arguments& arguments);
};

/// Every verb, in the order in which the help lists them.
std::span<const Verb* const> verbs();

/// "wardlock plist set [--sync MODE] FILE KEY TYPE VALUE".
std::string synopsis(const Verb& verb);
/// What `wardlock VERB --help` prints.
std::string helpText(const Verb& verb);
/// What `wardlock --help` prints; with a family ("plist"), what is said of its verbs.
std::string overview(std::string_view family = {});

} // namespace wardlock::cli
