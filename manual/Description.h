#pragma once

#include "cli/io/Arguments.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::manual {

/// The possible completions of a word on the command line.
struct Candidates {
    enum class Kind {
        Nothing,
        Files,
        Folders,
        Words,
        /// What `wardlock complete` prints for the one word.
        Names
    };
    Kind kind = Kind::Nothing;
    std::vector<std::string> words;
};

/// An option, and the completions of its value.
struct OptionEntry {
    cli::Option option;
    Candidates values;
};

/// An operand, by its name in the synopsis.
struct OperandEntry {
    std::string name;
    /// Whether there may be any number of them.
    bool repeated = false;
    Candidates values;
};

/// One use of a program: a verb of `wardlock`, or the single use of `wardlock-settings`.
struct Use {
    /// "plist set"; empty where the program has no verbs.
    std::string verb;
    std::string summary;
    std::string synopsis;
    /// As in the help: paragraphs, and examples indented by two blanks.
    std::string description;
    std::vector<OptionEntry> options;
    std::vector<OperandEntry> operands;
};

/// A program, described by the tables of its help.
struct Program {
    std::string name;
    std::string summary;
    std::vector<Use> uses;

    bool hasVerbs() const { return uses.size() != 1 || !uses.front().verb.empty(); }
};

Program commandDescription();
Program windowDescription();

/// Return the first words of all verbs ("plist"), and the second words of a family ("set"), without
/// duplicates.
std::vector<std::string> firstWords(const Program& program);
std::vector<std::string> secondWords(const Program& program, std::string_view family);

} // namespace wardlock::manual
