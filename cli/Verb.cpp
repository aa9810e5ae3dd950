#include "cli/Verb.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

std::string padded(std::string_view text, std::size_t width) {
    std::string result(text);
    result.append(std::max(width, result.size()) - result.size(), ' ');
    return result;
}

std::string optionSynopsis(const Option& option) {
    std::string text(option.name);
    return option.value.empty() ? text : text + ' ' + std::string(option.value);
}

constexpr std::string_view exitCodes =
    "Exit codes: 0 done, 1 failure (one line on standard error), 2 wrong usage,\n"
    "3 not a property list.\n";

} // namespace

std::string synopsis(const Verb& verb) {
    std::string text = "wardlock " + std::string(verb.name);
    for (const Option& option : verb.options)
        text += " [" + optionSynopsis(option) + ']';
    if (!verb.operands.empty())
        text += ' ' + std::string(verb.operands);
    return text;
}

std::string helpText(const Verb& verb) {
    std::string text = "Usage: " + synopsis(verb) + "\n\n" + std::string(verb.description) + "\nOptions:\n";
    constexpr std::size_t column = 16;
    for (const Option& option : verb.options)
        text += "  " + padded(optionSynopsis(option), column) + std::string(option.help) + '\n';
    text += "  " + padded("--help", column) + "print this\n\n";
    return text + std::string(exitCodes);
}

std::string overview(std::string_view family) {
    std::string text = "Usage: wardlock ";
    text += family.empty() ? "VERB [ARGUMENT...]\n" : std::string(family) + " VERB [ARGUMENT...]\n";
    if (family.empty())
        text += "       wardlock --help | --version\n";
    text += "\nVerbs (wardlock VERB --help tells more of each):\n";
    for (const Verb* verb : verbs())
        if (family.empty() || verb->name.starts_with(std::string(family) + ' '))
            text += "  " + padded(verb->name, 16) + std::string(verb->summary) + '\n';
    return text + '\n' + std::string(exitCodes);
}

} // namespace wardlock::cli
