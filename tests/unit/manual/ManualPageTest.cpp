#include "cli/command/Verb.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"

#include <gtest/gtest.h>

#include <sstream>

namespace wardlock::test {
namespace {

std::string pageFile(const std::string& name) {
    return buildFolder() + "/share/man/man1/" + name + ".1";
}

/// The page as a reader sees it, without its typefaces and on one line.
std::string rendered(const std::string& name) {
    const ProcessResult result =
        runProcess("/usr/bin/env", {"groff", "-man", "-Tascii", "-P-cbou", pageFile(name)});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    std::istringstream words(result.output);
    std::string text;
    for (std::string word; words >> word;)
        text += word + ' ';
    return text;
}

class ManualPage : public ::testing::TestWithParam<const char*> {};

TEST_P(ManualPage, SatisfiesTheCheckersOfManualPages) {
    const ProcessResult lint = runProcess("/usr/bin/env", {"mandoc", "-Tlint", pageFile(GetParam())});
    EXPECT_EQ(lint.exitCode, 0);
    EXPECT_EQ(lint.output + lint.errors, "");
    const ProcessResult groff =
        runProcess("/usr/bin/env", {"groff", "-man", "-Tutf8", "-ww", "-z", pageFile(GetParam())});
    EXPECT_EQ(groff.exitCode, 0);
    EXPECT_EQ(groff.output + groff.errors, "");
}

TEST_P(ManualPage, NamesItsSubjectAndFurtherReading) {
    const std::string text = rendered(GetParam());
    for (const char* part :
         {"NAME wardlock", "SYNOPSIS wardlock", "WARDLOCK_DEVICE_ROOT", "SEE ALSO",
          "/var/mobile/Library/Preferences/com.tavix.wardlock.plist", "/share/doc/wardlock/index.md"})
        EXPECT_NE(text.find(part), std::string::npos) << part;
}

INSTANTIATE_TEST_SUITE_P(All, ManualPage, ::testing::Values("wardlock", "wardlock-settings"),
                         [](const auto& info) {
                             return std::string(info.param) == "wardlock" ? "Command" : "Window";
                         });

TEST(CommandManualPage, HasEveryVerbWithItsOptions) {
    const std::string text = rendered("wardlock");
    for (const cli::Verb* verb : cli::verbs()) {
        const std::string synopsis = cli::synopsis(*verb);
        const std::size_t first = text.find(synopsis);
        EXPECT_NE(first, std::string::npos) << synopsis;
        EXPECT_NE(text.find(synopsis, first + 1), std::string::npos) << synopsis << " has no section";
        for (const cli::Option& option : verb->options)
            EXPECT_NE(text.find(' ' + cli::optionSynopsis(option) + ' '), std::string::npos) << option.name;
    }
}

TEST(CommandManualPage, DescribesEveryVerbAsItsHelpDoes) {
    const std::string text = rendered("wardlock");
    for (const cli::Verb* verb : cli::verbs()) {
        std::istringstream words{std::string(verb->description)};
        std::string beginning;
        for (int i = 0; i < 6; ++i) {
            std::string word;
            words >> word;
            beginning += word + ' ';
        }
        EXPECT_NE(text.find(beginning), std::string::npos) << beginning;
    }
}

TEST(CommandManualPage, NamesTheInstalledPagesOfTheDocumentation) {
    const std::string text = rendered("wardlock");
    EXPECT_NE(text.find("/share/doc/wardlock/automation.md "), std::string::npos);
    EXPECT_EQ(text.find(" docs/"), std::string::npos);
}

TEST(WindowManualPage, HasEveryOptionOfItsHelp) {
    const ProcessResult help = runProcess(programFolder() + "/wardlock-settings", {"--help"});
    const std::string text = rendered("wardlock-settings");
    std::istringstream lines(help.output);
    int options = 0;
    for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with("  --"))
            continue;
        ++options;
        const std::string name = line.substr(2, line.find(' ', 2) - 2);
        EXPECT_NE(text.find(' ' + name + ' '), std::string::npos) << name;
    }
    EXPECT_GE(options, 5);
}

} // namespace
} // namespace wardlock::test
