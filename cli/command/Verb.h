#pragma once

#include "cli/io/Arguments.h"
#include "cli/io/CommandError.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// A verb of the command. Help texts and manual pages are generated from these descriptions, so that both
/// have the same text.
struct Verb {
    /// The words that name it: "status", "plist dump".
    std::string_view name;
    /// The operands as the synopsis shows them; empty when the verb takes none.
    std::string_view operands;
    /// One line, without a full stop.
    std::string_view summary;
    /// Paragraphs, wrapped at 80 columns, ending in a line feed; pages of the documentation as
    /// "docs/NAME.md".
    std::string_view description;
    std::span<const Option> options;
    std::size_t fewestOperands;
    std::size_t mostOperands;
    /// Throws CommandError on failure. Returns the exit code otherwise.
    ExitCode (*run)(const Arguments& arguments);
    /// Commands that show its use, one a line.
    std::string_view examples = {};
    /// Whether it reads a property list that the user names, and so may end with NotAPropertyList.
    bool readsPropertyList = false;
};

/// Returns every verb, in the order of the help.
std::span<const Verb* const> verbs();

/// An environment variable that the command reads.
struct Variable {
    std::string_view name;
    std::string_view meaning;
};
std::span<const Variable> variables();

/// An exit code of the command, and its meaning.
struct ExitCodeText {
    ExitCode code;
    std::string_view meaning;
};
std::span<const ExitCodeText> exitCodes();
/// Returns those with which the verb can end.
std::vector<ExitCodeText> exitCodes(const Verb& verb);

/// The options of every verb.
inline constexpr Option helpOption{"--help", "", "print this help (also -h)"};
inline constexpr Option deviceRootOption{
    "--device-root", "DIR", "the folder that contains the device's files, instead of\nWARDLOCK_DEVICE_ROOT"};

/// Returns "wardlock plist set [--sync MODE] FILE KEY TYPE VALUE".
std::string synopsis(const Verb& verb);
/// Returns "--sync MODE".
std::string optionSynopsis(const Option& option);
/// Returns what `wardlock VERB --help` prints.
std::string helpText(const Verb& verb);
/// Returns what `wardlock --help` prints; for a family ("plist"), only its verbs.
std::string overview(std::string_view family = {});

} // namespace wardlock::cli
