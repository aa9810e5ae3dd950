#include "cli/command/CommandLine.h"

#include "cli/command/Verb.h"
#include "cli/io/Output.h"
#include "platform/runtime/ExceptionBoundary.h"

#include <algorithm>
#include <exception>
#include <string>

namespace wardlock::cli {

namespace {

using Words = std::span<const std::string_view>;

/// How many words at the front name the verb; 0 when they name another.
std::size_t matchedWords(const Verb& verb, Words words) {
    const std::size_t space = verb.name.find(' ');
    if (words.empty() || words[0] != verb.name.substr(0, space))
        return 0;
    if (space == std::string_view::npos)
        return 1;
    return words.size() > 1 && words[1] == verb.name.substr(space + 1) ? 2 : 0;
}

bool isFamily(std::string_view word) {
    return std::ranges::any_of(
        verbs(), [&](const Verb* verb) { return verb->name.starts_with(std::string(word) + ' '); });
}

bool asksForHelp(Words words) {
    return std::find(words.begin(), std::ranges::find(words, "--"), "--help") !=
           std::ranges::find(words, "--");
}

ExitCode runVerb(const Verb& verb, Words words) {
    if (asksForHelp(words)) {
        Output::text(helpText(verb));
        return ExitCode::Done;
    }
    const Arguments arguments(words, verb.options);
    const std::size_t count = arguments.operands().size();
    if (count < verb.fewestOperands || count > verb.mostOperands)
        throw CommandError(ExitCode::WrongUsage,
                           count < verb.fewestOperands ? "an argument is missing" : "too many arguments");
    return verb.run(arguments);
}

ExitCode runWithoutVerb(Words words) {
    if (words.empty())
        throw CommandError(ExitCode::WrongUsage, "no verb given");
    if (words[0] == "--help")
        Output::text(overview());
    else if (words[0] == "--version")
        Output::line("wardlock " WARDLOCK_VERSION);
    else if (isFamily(words[0]) && words.size() > 1 && words[1] == "--help")
        Output::text(overview(words[0]));
    else if (isFamily(words[0]) && words.size() == 1)
        throw CommandError(ExitCode::WrongUsage, std::string(words[0]) + " needs a verb of its own");
    else
        throw CommandError(ExitCode::WrongUsage, "no such verb: " + std::string(words[0]) +
                                                     (isFamily(words[0]) ? ' ' + std::string(words[1]) : ""));
    return ExitCode::Done;
}

/// Runs `body`, then makes sure that what it printed is out; tells every failure in one line.
template <class Body>
ExitCode reportingFailures(const std::string& name, Body body) {
    try {
        const ExitCode code = body();
        Output::flush();
        return code;
    } catch (const CommandError& error) {
        // What was printed before the failure comes before it.
        Output::flushLast();
        std::string text = name + ": " + error.what();
        if (error.code() == ExitCode::WrongUsage)
            text += " (see " + name + " --help)";
        Output::error(text);
        return error.code();
    } catch (const std::exception& error) {
        Output::flushLast();
        Output::error(name + ": " + error.what());
        return ExitCode::Failed;
    }
}

ExitCode runReportingFailures(Words words) {
    for (const Verb* verb : verbs())
        if (const std::size_t count = matchedWords(*verb, words))
            return reportingFailures("wardlock " + std::string(verb->name),
                                     [&] { return runVerb(*verb, words.subspan(count)); });
    return reportingFailures("wardlock", [&] { return runWithoutVerb(words); });
}

} // namespace

ExitCode runCommandLine(Words words) {
    return platform::callOrTerminate([&] { return runReportingFailures(words); });
}

} // namespace wardlock::cli
