#include "cli/command/Commands.h"
#include "cli/io/Output.h"
#include "cli/io/Suggestion.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

ExitCode help(const Arguments& arguments) {
    std::string name;
    for (const std::string_view word : arguments.operands())
        name += (name.empty() ? "" : " ") + std::string(word);
    const auto found = std::ranges::find(verbs(), name, &Verb::name);
    const auto isOfFamily = [&](const Verb* verb) { return verb->name.starts_with(name + ' '); };
    std::vector<std::string_view> known;
    std::ranges::transform(verbs(), std::back_inserter(known), &Verb::name);
    if (found != verbs().end())
        Output::text(helpText(**found));
    else if (name.empty() || std::ranges::any_of(verbs(), isOfFamily))
        Output::text(overview(name));
    else
        throw CommandError(ExitCode::WrongUsage, "unknown verb '" + name + '\'' + didYouMean(name, known));
    return ExitCode::Done;
}

} // namespace

const Verb helpVerb{
    "help",
    "VERB...",
    "print what a verb does, or the list of verbs",
    "Prints what a verb does, like `wardlock VERB --help`. Without VERB, prints the\n"
    "list of verbs, like `wardlock --help`.\n",
    {},
    0,
    2,
    help,
    "wardlock help plist set\n",
};

} // namespace wardlock::cli
