#include "cli/command/Verb.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/system/documentation/Console.h"
#include "tests/system/documentation/Page.h"
#include "tests/system/documentation/Untested.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>

namespace wardlock::test {
namespace {

using Words = std::vector<std::string>;

/// The words of a command up to what begins another one or a remark.
Words wordsOf(const std::string& command) {
    Words words;
    std::istringstream text(command);
    for (std::string word; text >> word;) {
        if (word == "|" || word == "&&" || word == "||" || word == ";" || word.starts_with('#'))
            break;
        words.push_back(word);
    }
    return words;
}

/// The verb that the words after "wardlock" name; none when they name none.
const cli::Verb* verbOf(const Words& words) {
    for (const cli::Verb* verb : cli::verbs()) {
        std::istringstream names{std::string(verb->name)};
        std::size_t at = 1;
        bool same = true;
        for (std::string name; same && names >> name; ++at)
            same = at < words.size() && words[at] == name;
        if (same)
            return verb;
    }
    return nullptr;
}

/// What a program prints of itself; each program is asked once only.
const std::string& helpOf(const std::string& program) {
    static std::map<std::string, std::string> known;
    const auto [entry, isNew] = known.try_emplace(program);
    if (isNew) {
        const ProcessResult result = runProcess(program, {"--help"});
        EXPECT_EQ(result.exitCode, 0) << program << " --help\n" << result.errors;
        entry->second = result.output;
    }
    return entry->second;
}

void expectOptions(const Words& words, const std::string& help) {
    for (const std::string& word : words)
        if (word.starts_with("--") && word.size() > 2) {
            const std::string option = word.substr(0, word.find('='));
            EXPECT_NE(help.find(option), std::string::npos) << "no option " << option << " in\n" << help;
        }
}

void expectPreset(const Words& words) {
    const auto option = std::ranges::find(words, "--preset");
    if (option == words.end() || std::next(option) == words.end())
        return;
    EXPECT_NE(sourceText("CMakePresets.json").find("{ \"name\": \"" + *std::next(option) + '"'),
              std::string::npos)
        << "no preset " << *std::next(option);
}

/// What can be tested of a command without running it: its program exists and has the verb and options.
void expectPossible(const std::string& command) {
    const Words words = wordsOf(command);
    if (words.empty())
        return;
    const std::string& program = words.front();
    if (program == "wardlock" && words.size() > 1 && std::isalpha(static_cast<unsigned char>(words[1][0]))) {
        const cli::Verb* verb = verbOf(words);
        // "wardlock VERB --help" speaks of all of them.
        if (verb)
            expectOptions(words, cli::helpText(*verb));
        else
            EXPECT_TRUE(words[1] == "VERB" || !cli::overview(words[1]).empty()) << "no such verb";
    } else if (program == "wardlock" || program == "wardlock-settings") {
        // A build without the window has not all of them.
        if (std::filesystem::exists(programFolder() + '/' + program))
            expectOptions(words, helpOf(programFolder() + '/' + program));
    } else if (program == "cmake") {
        expectPreset(words);
    } else if (program == "./run" || program == "./test" || program.starts_with("tools/") ||
               program.starts_with("packaging/") || program.starts_with("tests/")) {
        const std::string path = sourceFolder() + '/' + program;
        ASSERT_TRUE(std::filesystem::exists(path));
        if (std::ranges::any_of(words, [](const auto& word) { return word.starts_with("--"); }))
            expectOptions(words, helpOf(path));
        expectPreset(words);
    }
}

TEST(DocumentedOptions, ExistInTheProgramsThatThePagesName) {
    for (const std::string& path : pagesOfTheDocumentation()) {
        const Page page(path);
        for (const Span& span : page.spans()) {
            SCOPED_TRACE(page.place(span.line) + ": " + span.text);
            expectPossible(span.text);
        }
        for (const Step& step : stepsOf(page)) {
            SCOPED_TRACE(page.place(step.line) + ": " + step.command);
            expectPossible(step.command);
        }
    }
}

} // namespace
} // namespace wardlock::test
