#pragma once

#include "cli/io/Arguments.h"
#include "cli/io/CommandError.h"

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
    /// One line, without a full stop; the help of an option may take several.
    std::string_view summary;
    /// Paragraphs, wrapped at 80 columns, ending in a line feed; pages of the documentation as
    /// "docs/NAME.md".
    std::string_view description;
    std::span<const Option> options;
    std::size_t fewestOperands;
    std::size_t mostOperands;
    /// Failures are thrown as CommandError; the result is for verbs whose outcome is more than done.
    ExitCode (*run)(const Arguments& arguments);
};

/// Every verb, in the order in which the help lists them.
std::span<const Verb* const> verbs();

/// A variable of the environment that the command heeds.
struct Variable {
    std::string_view name;
    std::string_view meaning;
};
std::span<const Variable> variables();

/// What an exit code of the command means.
struct ExitCodeText {
    ExitCode code;
    std::string_view meaning;
};
std::span<const ExitCodeText> exitCodes();

/// The option every verb takes.
inline constexpr Option helpOption{"--help", "", "print this"};

/// "wardlock plist set [--sync MODE] FILE KEY TYPE VALUE".
std::string synopsis(const Verb& verb);
/// "--sync MODE".
std::string optionSynopsis(const Option& option);
/// What `wardlock VERB --help` prints.
std::string helpText(const Verb& verb);
/// What `wardlock --help` prints; with a family ("plist"), what is said of its verbs.
std::string overview(std::string_view family = {});

} // namespace wardlock::cli
