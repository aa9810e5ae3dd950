#include "cli/command/CommandLine.h"

#include "cli/command/DeviceRootChoice.h"
#include "cli/command/Verb.h"
#include "cli/io/Output.h"
#include "cli/io/Suggestion.h"
#include "platform/runtime/ExceptionBoundary.h"
#include "settings/history/History.h"

#include <algorithm>
#include <array>
#include <exception>
#include <sstream>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view versionOption = "--version";

/// Returns how many of the first words name `verb`; 0 when they name another.
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

bool isHelp(std::string_view word) {
    return word == "--help" || word == "-h";
}

/// Returns whether help is among the options; after "--" it is an operand.
bool asksForHelp(Words words) {
    const auto end = std::ranges::find(words, "--");
    return std::find_if(words.begin(), end, isHelp) != end;
}

/// Returns the name of the operand at `index` in the synopsis, for example "FILE".
std::string operandName(const Verb& verb, std::size_t index) {
    std::istringstream names{std::string(verb.operands)};
    std::string name;
    for (std::size_t i = 0; i <= index; ++i)
        names >> name;
    return name.substr(0, name.find("..."));
}

std::string unknownVerb(Words words) {
    const std::string first(words[0]);
    if (first.starts_with('-'))
        return "unknown option '" + first + '\'' +
               didYouMean(first, std::array{helpOption.name, deviceRootOption.name, versionOption});
    std::vector<std::string_view> known;
    for (const Verb* verb : verbs())
        known.push_back(isFamily(first) ? verb->name : verb->name.substr(0, verb->name.find(' ')));
    const std::string given = isFamily(first) ? first + ' ' + std::string(words[1]) : first;
    return "unknown verb '" + given + '\'' + didYouMean(given, known);
}

/// Returns "; did you mean 'account enable'?" for the first operand of a verb with a family, when it
/// resembles a verb of the family; empty otherwise.
std::string suggestedVerb(const Verb& verb, std::string_view operand) {
    const std::string family = std::string(verb.name) + ' ';
    std::vector<std::string_view> known;
    for (const Verb* other : verbs())
        if (other->name.starts_with(family))
            known.push_back(other->name);
    return didYouMean(family + std::string(operand), known);
}

ExitCode runVerb(const Verb& verb, Words words) {
    if (asksForHelp(words)) {
        Output::text(helpText(verb));
        return ExitCode::Done;
    }
    std::vector<Option> options(verb.options.begin(), verb.options.end());
    options.push_back(deviceRootOption);
    const Arguments arguments(words, options);
    if (const auto folder = arguments.value(deviceRootOption.name))
        useDeviceRoot(*folder);
    const std::size_t count = arguments.operands().size();
    if (count < verb.fewestOperands)
        throw CommandError(ExitCode::WrongUsage, "missing argument " + operandName(verb, count));
    if (count > verb.mostOperands)
        throw CommandError(ExitCode::WrongUsage, "unexpected argument '" +
                                                     std::string(arguments.operand(verb.mostOperands)) +
                                                     '\'' + suggestedVerb(verb, arguments.operand(0)));
    return verb.run(arguments);
}

ExitCode runWithoutVerb(Words words) {
    if (words.empty())
        throw CommandError(ExitCode::WrongUsage, "missing verb");
    if (isHelp(words[0]))
        Output::text(overview());
    else if (words[0] == versionOption || words[0] == "-V")
        Output::line("wardlock " WARDLOCK_VERSION);
    else if (isFamily(words[0]) && words.size() > 1 && isHelp(words[1]))
        Output::text(overview(words[0]));
    else if (isFamily(words[0]) && words.size() == 1)
        throw CommandError(ExitCode::WrongUsage, "missing verb after '" + std::string(words[0]) + '\'');
    else
        throw CommandError(ExitCode::WrongUsage, unknownVerb(words));
    return ExitCode::Done;
}

/// Runs `body`, then flushes what it printed. Reports every failure in one line.
template <class Body>
ExitCode reportingFailures(const std::string& name, Body body) {
    try {
        const ExitCode code = body();
        Output::flush();
        return code;
    } catch (const ReaderGone& gone) {
        return gone.code();
    } catch (const CommandError& error) {
        // What was printed before the failure comes before its message.
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

/// Applies the options before the verb. Returns the words after them.
Words withoutCommonOptions(Words words) {
    const std::string given = std::string(deviceRootOption.name) + '=';
    while (!words.empty()) {
        if (words[0].starts_with(given)) {
            useDeviceRoot(words[0].substr(given.size()));
            words = words.subspan(1);
        } else if (words[0] == deviceRootOption.name && words.size() > 1) {
            useDeviceRoot(words[1]);
            words = words.subspan(2);
        } else if (words[0] == deviceRootOption.name) {
            throw CommandError(ExitCode::WrongUsage, "option '--device-root' needs a value");
        } else {
            break;
        }
    }
    return words;
}

} // namespace

ExitCode runCommandLine(Words words) {
    platform::setVersionPlace(CommandPlace);
    return platform::callOrTerminate([&] {
        Words rest;
        const ExitCode code = reportingFailures("wardlock", [&] {
            rest = withoutCommonOptions(words);
            return ExitCode::Done;
        });
        return code == ExitCode::Done ? runReportingFailures(rest) : code;
    });
}

} // namespace wardlock::cli
