#include "cli/command/Verb.h"
#include "tests/unit/cli/CommandFixture.h"

#include <csignal>
#include <filesystem>

namespace wardlock::test {
namespace {

class CommandLine : public DeviceRootFixture {};

bool oneLine(const std::string& text) {
    return !text.empty() && text.find('\n') == text.size() - 1;
}

std::vector<std::string> wordsOf(std::string_view name) {
    const std::size_t space = name.find(' ');
    if (space == std::string_view::npos)
        return {std::string(name)};
    return {std::string(name.substr(0, space)), std::string(name.substr(space + 1))};
}

TEST_F(CommandLine, ListsEveryVerbWithItsSummary) {
    const ProcessResult result = wardlockCommand({"--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    for (const cli::Verb* verb : cli::verbs()) {
        EXPECT_NE(result.output.find("\n  " + std::string(verb->name) + ' '), std::string::npos)
            << verb->name;
        EXPECT_NE(result.output.find(std::string(verb->summary) + '\n'), std::string::npos) << verb->name;
    }
}

TEST_F(CommandLine, PrintsTheHelpOfEveryVerb) {
    for (const cli::Verb* verb : cli::verbs()) {
        std::vector<std::string> words = wordsOf(verb->name);
        words.push_back("--help");
        const ProcessResult result = wardlockCommand(words);
        EXPECT_EQ(result.exitCode, 0) << verb->name;
        EXPECT_TRUE(result.output.starts_with("Usage: wardlock " + std::string(verb->name))) << verb->name;
        EXPECT_NE(result.output.find(verb->description), std::string::npos) << verb->name;
        for (const cli::Option& option : verb->options)
            EXPECT_NE(result.output.find("\n  " + std::string(option.name)), std::string::npos) << verb->name;
    }
}

TEST_F(CommandLine, OnlyPrintsWhenHelpIsRequested) {
    EXPECT_EQ(wardlockCommand({"status", "--json", "--help"}).exitCode, 0);
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(CommandLine, KeepsHelpWithinEightyColumns) {
    for (const cli::Verb* verb : cli::verbs()) {
        std::size_t column = 0;
        for (const char c : verb->description) {
            column = c == '\n' ? 0 : column + 1;
            ASSERT_LE(column, 80U) << verb->name;
        }
        EXPECT_TRUE(verb->description.ends_with('\n')) << verb->name;
    }
}

TEST_F(CommandLine, ListsTheVerbsOfAFamily) {
    const ProcessResult result = wardlockCommand({"plist", "--help"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_NE(result.output.find("  plist dump"), std::string::npos);
    EXPECT_EQ(result.output.find("  status"), std::string::npos);
}

TEST_F(CommandLine, PrintsItsVersion) {
    const ProcessResult result = wardlockCommand({"--version"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_TRUE(result.output.starts_with("wardlock 0."));
    EXPECT_TRUE(oneLine(result.output));
}

TEST_F(CommandLine, RefusesWrongUsageInOneLine) {
    const std::vector<std::vector<std::string>> wrong = {
        {},
        {"frobnicate"},
        {"--frobnicate"},
        {""},
        {"plist"},
        {"plist", "frobnicate"},
        {"dump"},
        {"status", "operand"},
        {"status", "--frobnicate"},
        {"status", "--json=1"},
        {"get"},
        {"get", "kEnabled", "kPasscode"},
        {"account"},
        {"announce"},
        {"watch", "kEnabled"},
        {"plist", "dump"},
        {"plist", "dump", "a", "b"},
        {"plist", "lint"},
        {"plist", "convert", "a"},
        {"plist", "convert", "a", "-o"},
        {"plist", "set", "a", "b", "int"},
    };
    for (const auto& words : wrong) {
        const ProcessResult result = wardlockCommand(words);
        const std::string said = ::testing::PrintToString(words) + result.errors;
        EXPECT_EQ(result.exitCode, 2) << said;
        EXPECT_EQ(result.output, "") << said;
        EXPECT_TRUE(oneLine(result.errors)) << said;
    }
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(CommandLine, NamesTheWholeUnknownVerb) {
    EXPECT_EQ(wardlockCommand({"frobnicate"}).errors,
              "wardlock: unknown verb 'frobnicate' (see wardlock --help)\n");
    EXPECT_EQ(wardlockCommand({"plist", "frobnicate"}).errors,
              "wardlock: unknown verb 'plist frobnicate' (see wardlock --help)\n");
    EXPECT_EQ(wardlockCommand({"plist"}).errors,
              "wardlock: missing verb after 'plist' (see wardlock --help)\n");
}

TEST_F(CommandLine, SuggestsTheNearestVerb) {
    EXPECT_EQ(wardlockCommand({"stats"}).errors,
              "wardlock: unknown verb 'stats'; did you mean 'status'? (see wardlock --help)\n");
    EXPECT_EQ(wardlockCommand({"plist", "dmup"}).errors,
              "wardlock: unknown verb 'plist dmup'; did you mean 'plist dump'? (see wardlock --help)\n");
}

TEST_F(CommandLine, NamesTheMissingOrUnexpectedArgument) {
    EXPECT_EQ(wardlockCommand({"plist", "set", "list", "key"}).errors,
              "wardlock plist set: missing argument TYPE (see wardlock plist set --help)\n");
    EXPECT_EQ(wardlockCommand({"plist", "lint"}).errors,
              "wardlock plist lint: missing argument FILE (see wardlock plist lint --help)\n");
    EXPECT_EQ(wardlockCommand({"get", "kEnabled", "kPasscode"}).errors,
              "wardlock get: unexpected argument 'kPasscode' (see wardlock get --help)\n");
}

TEST_F(CommandLine, NamesTheOptionThatIsWrong) {
    EXPECT_EQ(
        wardlockCommand({"status", "--jsno"}).errors,
        "wardlock status: unknown option '--jsno'; did you mean '--json'? (see wardlock status --help)\n");
    EXPECT_EQ(wardlockCommand({"status", "--json=1"}).errors,
              "wardlock status: option '--json' takes no value (see wardlock status --help)\n");
    EXPECT_EQ(wardlockCommand({"plist", "convert", "a", "-o"}).errors,
              "wardlock plist convert: option '-o' needs a value (see wardlock plist convert --help)\n");
}

TEST_F(CommandLine, FailsInOneLineWhenTheOutputIsClosed) {
    ProcessSetup setup;
    setup.closedOutput = true;
    const ProcessResult result = wardlockCommand({"--help"}, setup);
    EXPECT_EQ(result.exitCode, 1) << result.signal;
    EXPECT_TRUE(oneLine(result.errors)) << result.errors;
}

TEST_F(CommandLine, EndsQuietlyWhenTheReaderIsGone) {
    // The list is larger than a pipe, so that the command has to write when its reader is gone.
    writeFile("/tmp/long.plist", xml("<string>" + std::string(1'000'000, 'x') + "</string>"));
    Process process(command, {"plist", "dump", onDisk("/tmp/long.plist")});
    process.closeOutput();
    const ProcessResult result = process.wait();
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "");
}

TEST_F(CommandLine, TakesTheUsualShortOptions) {
    EXPECT_EQ(wardlockCommand({"-h"}).output, wardlockCommand({"--help"}).output);
    EXPECT_EQ(wardlockCommand({"-V"}).output, wardlockCommand({"--version"}).output);
    EXPECT_EQ(wardlockCommand({"plist", "set", "-h"}).output,
              wardlockCommand({"plist", "set", "--help"}).output);
}

TEST_F(CommandLine, HelpsWithTheVerbAfterHelp) {
    EXPECT_EQ(wardlockCommand({"help"}).output, wardlockCommand({"--help"}).output);
    EXPECT_EQ(wardlockCommand({"help", "plist"}).output, wardlockCommand({"plist", "--help"}).output);
    for (const cli::Verb* verb : cli::verbs()) {
        std::vector<std::string> words = wordsOf(verb->name);
        words.push_back("--help");
        const std::string help = wardlockCommand(words).output;
        words.pop_back();
        words.insert(words.begin(), "help");
        EXPECT_EQ(wardlockCommand(words).output, help) << verb->name;
    }
    EXPECT_EQ(wardlockCommand({"help", "stats"}).errors,
              "wardlock help: unknown verb 'stats'; did you mean 'status'? (see wardlock help --help)\n");
}

TEST_F(CommandLine, ListsTheExitCodesThatAVerbCanHave) {
    EXPECT_EQ(wardlockCommand({"status", "--help"}).output.find("  3  "), std::string::npos);
    EXPECT_NE(wardlockCommand({"plist", "lint", "--help"}).output.find("  3  "), std::string::npos);
}

TEST_F(CommandLine, ShowsAnExampleOfEveryVerbThatIsThatVerb) {
    for (const cli::Verb* verb : cli::verbs()) {
        EXPECT_NE(verb->examples.find("wardlock " + std::string(verb->name)), std::string_view::npos)
            << verb->name;
        EXPECT_TRUE(verb->examples.ends_with('\n')) << verb->name;
    }
}

TEST_F(CommandLine, TakesTheDeviceRootBeforeAndAfterTheVerb) {
    const std::string other = folder() / "other";
    for (const auto& words : std::vector<std::vector<std::string>>{
             {"--device-root", other, "get", "kEnabled"},
             {"--device-root=" + other, "get", "kEnabled"},
             {"get", "kEnabled", "--device-root", other},
         }) {
        EXPECT_EQ(wardlockCommand(words).output, "true\n");
        EXPECT_TRUE(std::filesystem::remove_all(other) > 0);
    }
    EXPECT_FALSE(exists(documentPath));
    EXPECT_EQ(wardlockCommand({"--device-root"}).errors,
              "wardlock: option '--device-root' needs a value (see wardlock --help)\n");
    EXPECT_EQ(wardlockCommand({"--device-root", "", "status"}).errors,
              "wardlock: '' is not a folder name (see wardlock --help)\n");
}

TEST_F(CommandLine, PrintsTheSameInEveryLocale) {
    ProcessSetup setup;
    setup.environment["LC_ALL"] = "de_DE.UTF-8";
    writeFile("/tmp/real.plist", xml("<real>1.5</real>"));
    EXPECT_EQ(wardlockCommand({"plist", "dump", onDisk("/tmp/real.plist")}, setup).output,
              "{\"real\":\"1.5\"}\n");
}

} // namespace
} // namespace wardlock::test
