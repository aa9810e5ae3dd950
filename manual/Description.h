#pragma once

#include "cli/io/Arguments.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::manual {

/// What can stand in the place of a word on the command line.
struct Candidates {
    enum class Kind { Nothing, Files, Folders, Words };
    Kind kind = Kind::Nothing;
    std::vector<std::string> words;
};

/// An option, as all programs have them.
struct OptionEntry {
    cli::Option option;
    Candidates values;
};

/// An operand, by what the synopsis calls it.
struct OperandEntry {
    std::string name;
    /// Any number of them.
    bool repeated = false;
    Candidates values;
};

/// One use of a program: a verb of `wardlock`, or all that `wardlock-settings` does.
struct Use {
    /// "plist set"; empty where the program has no verbs.
    std::string verb;
    std::string summary;
    std::string synopsis;
    /// As the help prints it: paragraphs, lines of examples indented by two blanks.
    std::string description;
    std::vector<OptionEntry> options;
    std::vector<OperandEntry> operands;
};

/// A program, from the tables its help is made from.
struct Program {
    std::string name;
    std::string summary;
    std::vector<Use> uses;

    bool hasVerbs() const { return uses.size() != 1 || !uses.front().verb.empty(); }
};

Program commandDescription();
Program windowDescription();

/// The first words of all verbs ("plist"), and the second ones of a family ("set"); each once.
std::vector<std::string> firstWords(const Program& program);
std::vector<std::string> secondWords(const Program& program, std::string_view family);

} // namespace wardlock::manual
