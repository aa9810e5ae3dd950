#include "cli/command/Verb.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/Process.h"
#include "tests/support/TerminalProcess.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

namespace wardlock::test {
namespace {

using Words = std::vector<std::string>;

std::string bashFile(const std::string& program) {
    return buildFolder() + "/share/bash-completion/completions/" + program;
}

std::string zshFolder() {
    return buildFolder() + "/zsh-completions";
}

class BashCompletion : public DeviceRootFixture {
protected:
    /// What the function offers for the last word, or leaves to bash by an option.
    Words offered(const Words& words, const std::string& function = "_wardlock") {
        std::string line;
        for (const std::string& word : words)
            line += " '" + word + '\'';
        const std::string program = words.front().substr(words.front().rfind('/') + 1);
        const std::string script = "cd '" + root() + "'\nsource '" + bashFile(program) + "'\nCOMP_WORDS=(" +
                                   line + " )\nCOMP_CWORD=" + std::to_string(words.size() - 1) + '\n' +
                                   "compopt() { COMPREPLY=(\"$*\"); }\n" + function +
                                   "\n((${#COMPREPLY[@]} == 0)) || printf '%s\\n' \"${COMPREPLY[@]}\"\n";
        const ProcessResult result = runProcess("/bin/bash", {"--norc", "--noprofile", "-c", script});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.errors, "");
        Words found;
        std::istringstream lines(result.output);
        for (std::string word; std::getline(lines, word);)
            found.push_back(word);
        std::ranges::sort(found);
        return found;
    }
    static bool contains(const Words& words, std::string_view word) {
        return std::ranges::find(words, word) != words.end();
    }
};

Words wordsOf(const cli::Verb& verb) {
    Words words{"wardlock"};
    std::istringstream name{std::string(verb.name)};
    for (std::string word; name >> word;)
        words.push_back(word);
    return words;
}

TEST_F(BashCompletion, IsRegisteredForThePrograms) {
    for (const char* program : {"wardlock", "wardlock-settings"}) {
        const ProcessResult result = runProcess(
            "/bin/bash", {"--norc", "-c", "source '" + bashFile(program) + "'; complete -p " + program});
        EXPECT_TRUE(result.output.starts_with("complete -F _wardlock")) << result.output << result.errors;
    }
}

TEST_F(BashCompletion, OffersEveryVerb) {
    for (const cli::Verb* verb : cli::verbs()) {
        Words words = wordsOf(*verb);
        const std::string last = words.back();
        words.back() = "";
        EXPECT_TRUE(contains(offered(words), last)) << verb->name;
    }
}

TEST_F(BashCompletion, OffersEveryOptionOfAVerb) {
    for (const cli::Verb* verb : cli::verbs()) {
        Words words = wordsOf(*verb);
        words.push_back("-");
        const Words found = offered(words);
        EXPECT_EQ(found.size(), verb->options.size() + 2) << verb->name;
        for (const cli::Option& option : verb->options)
            EXPECT_TRUE(contains(found, option.name)) << verb->name << option.name;
        EXPECT_TRUE(contains(found, "--device-root")) << verb->name;
        EXPECT_TRUE(contains(found, "--help")) << verb->name;
    }
}

TEST_F(BashCompletion, OffersOnlyWordsWithTheTypedPrefix) {
    EXPECT_EQ(offered({"wardlock", "a"}), (Words{"account", "accounts", "allow", "announce", "apps"}));
    EXPECT_EQ(offered({"wardlock", "plist", "l"}), (Words{"lint"}));
    EXPECT_EQ(offered({"wardlock", "status", "--j"}), (Words{"--json"}));
    // A verb that is a family, too.
    EXPECT_EQ(offered({"wardlock", "history", "s"}), (Words{"show"}));
    EXPECT_EQ(offered({"wardlock", "history", "--j"}), (Words{"--json"}));
    EXPECT_EQ(offered({"wardlock", "history", "show", "1", "--j"}), (Words{"--json"}));
}

TEST_F(BashCompletion, OffersTheKeysThatAVerbAccepts) {
    EXPECT_EQ(offered({"wardlock", "account", "kRestrictS"}),
              (Words{"kRestrictSiri", "kRestrictSwitcher", "kRestrictSwitcherContacts"}));
    const Words announced = offered({"wardlock", "announce", "k"});
    EXPECT_TRUE(contains(announced, "kEnabled"));
    EXPECT_TRUE(contains(announced, "kRestrictSiri"));
}

TEST_F(BashCompletion, OffersAVerbOfAFamilyBesideTheKeysOfTheVerbOfItsName) {
    const Words found = offered({"wardlock", "account", ""});
    EXPECT_TRUE(contains(found, "rename"));
    EXPECT_TRUE(contains(found, "kRestrictSiri"));
    EXPECT_EQ(offered({"wardlock", "account", "show", "--ty"}), (Words{"--typed"}));
}

TEST_F(BashCompletion, OffersTheNamesOfAccountsSettingsAndApps) {
    const std::string program = buildFolder() + "/bin/wardlock";
    const ProcessResult made = runProcess(program, {"device", "init", "--demo", root()});
    ASSERT_EQ(made.exitCode, 0) << made.errors;
    ASSERT_EQ(runProcess(program, {"account", "add", "Kim O'Neil"}).exitCode, 0);
    EXPECT_EQ(offered({program, "account", "enable", ""}), (Words{"Default", "Kim\\ O\\'Neil"}));
    EXPECT_EQ(offered({program, "set", "--account", "Ki"}), (Words{"Kim\\ O\\'Neil"}));
    EXPECT_EQ(offered({program, "set", "Control"}), (Words{"Control\\ Center"}));
    EXPECT_EQ(offered({program, "get", "kE"}), (Words{"kEnabled"}));
    EXPECT_EQ(offered({program, "set", "Siri", ""}), (Words{"off", "on"}));
    EXPECT_EQ(offered({program, "restrict", "Mail", "Face"}), (Words{"FaceTime"}));
    EXPECT_EQ(offered({program, "account", "add", "Ki"}), Words{});
}

TEST_F(BashCompletion, OffersANameWithoutEscapesInsideQuotes) {
    const std::string program = buildFolder() + "/bin/wardlock";
    EXPECT_EQ(offered({program, "set", "\"Control C"}), (Words{"Control Center"}));
}

TEST_F(BashCompletion, CompletesANameToItselfInAllQuotes) {
    environment.set("TERM", "dumb");
    writeFile("/names", "x$(touch f)\ny`touch f`\nKim O'Neil\nsay \"hi\" \\ $HOME!now\n");
    TerminalProcess shell("/bin/bash", {"--norc", "--noprofile", "-i"});
    // In two parts, so that what is typed is not taken for what comes of it.
    shell.type("cd '" + root() + "'; source '" + bashFile("wardlock") +
               "'; wardlock() { [[ $1 == complete ]] && cat names || printf 'gi''ven <%s>\\n' \"$3\"; }; "
               "PS1='ready''> '\n");
    shell.waitFor("ready> ");
    const auto gives = [&](const std::string& typed, const std::string& given) {
        SCOPED_TRACE(typed);
        shell.type("wardlock get --account " + typed + "\t\n");
        shell.waitFor("given <" + given + ">");
    };
    for (const std::string quote : {"", "'", "\""}) {
        gives(quote + "x", "x$(touch f)");
        gives(quote + "y", "y`touch f`");
        gives(quote + "Kim", "Kim O'Neil");
        gives(quote + "say", "say \"hi\" \\ $HOME!now");
    }
    gives("'Kim O'\\''N", "Kim O'Neil");
    gives("\"Kim \"O", "Kim O'Neil");
    gives("Kim\\ O\\'N", "Kim O'Neil");
    gives("\"say \\\"h", "say \"hi\" \\ $HOME!now");
    EXPECT_FALSE(exists("/f"));
}

TEST_F(BashCompletion, CreatesNoDocument) {
    EXPECT_EQ(offered({buildFolder() + "/bin/wardlock", "account", "show", ""}), Words{});
    EXPECT_FALSE(exists(documentPath));
}

TEST_F(BashCompletion, LeavesFilesToTheShellWhereAFileIsWanted) {
    const Words files{"-o default"};
    EXPECT_EQ(offered({"wardlock", "plist", "dump", "one"}), files);
    EXPECT_EQ(offered({"wardlock", "settings", "--script", "one.t"}), files);
    EXPECT_EQ(offered({"wardlock", "plist", "lint", "a", "b", "one.t"}), files);
    EXPECT_EQ(offered({"wardlock", "plist", "convert", "-o", "one.t"}), files);
    EXPECT_EQ(offered({"wardlock", "plist", "dump", "one.txt", "one"}), Words{});
}

TEST_F(BashCompletion, LeavesFoldersToTheShellForDeviceRoots) {
    const Words folders{"-o dirnames"};
    EXPECT_EQ(offered({"wardlock", "device", "init", "dev"}), folders);
    EXPECT_EQ(offered({"wardlock-settings", "--device-root", "dev"}, "_wardlock_settings"), folders);
}

TEST_F(BashCompletion, CompletesFilesAtThePromptWhateverTheirNames) {
    writeFile("/one file.plist", "");
    writeFile("/two\nlines.plist", "");
    makeFolder("/device-root");
    writeFile("/device-file", "");
    environment.set("TERM", "dumb");
    TerminalProcess shell("/bin/bash", {"--norc", "--noprofile", "-i"});
    // In two parts, so that what is typed is not taken for what comes of it.
    shell.type("cd '" + root() + "'; source '" + bashFile("wardlock") +
               "'; wardlock() { printf 'gi''ven <%q>\\n' \"${!#}\"; }; PS1='ready''> '\n");
    shell.waitFor("ready> ");
    const auto gives = [&](const std::string& typed, const std::string& given) {
        shell.type(typed + "\t\n");
        shell.waitFor("given <" + given + ">");
    };
    gives("wardlock plist dump one", "one\\ file.plist");
    gives("wardlock plist dump two", "$'two\\nlines.plist'");
    gives("wardlock device init dev", "device-root/");
}

TEST_F(BashCompletion, OffersTheValuesOfAnOption) {
    const Words modes{"data", "full", "none"};
    EXPECT_EQ(offered({"wardlock", "plist", "set", "--sync", ""}), modes);
    EXPECT_EQ(offered({"wardlock", "plist", "set", "--sync", "="}), modes);
    EXPECT_EQ(offered({"wardlock", "plist", "set", "--sync", "=", "d"}), (Words{"data"}));
}

TEST_F(BashCompletion, CountsOperandsWithoutOptionsAndTheirValues) {
    const Words types{"bool", "int", "real", "string"};
    EXPECT_EQ(offered({"wardlock", "plist", "set", "file", "key", ""}), types);
    EXPECT_EQ(offered({"wardlock", "plist", "set", "--sync", "none", "file", "key", ""}), types);
    EXPECT_EQ(offered({"wardlock", "plist", "set", "--sync", "=", "none", "file", "key", ""}), types);
}

TEST_F(BashCompletion, OffersTheOptionsOfTheWindow) {
    const Words found = offered({"wardlock-settings", "--"}, "_wardlock_settings");
    for (const char* option : {"--dark", "--light", "--device-root", "--help"})
        EXPECT_TRUE(contains(found, option)) << option;
}

TEST_F(BashCompletion, OffersNothingAfterAnUnknownVerb) {
    EXPECT_EQ(offered({"wardlock", "frobnicate", ""}), Words{});
    EXPECT_EQ(offered({"wardlock", "plist", "frobnicate", "-"}), Words{});
}

class ZshCompletion : public DeviceRootFixture {};

TEST_F(ZshCompletion, IsValid) {
    for (const char* file : {"_wardlock", "_wardlock-settings"}) {
        const ProcessResult result = runProcess("/usr/bin/env", {"zsh", "-n", zshFolder() + '/' + file});
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ(result.errors, "");
    }
}

TEST_F(ZshCompletion, CompletesWhatIsTypedAtThePrompt) {
    environment.set("TERM", "xterm");
    TerminalProcess shell("/usr/bin/env", {"zsh", "-f", "-i"});
    // In two parts, so that what is typed is not taken for the prompt.
    shell.type("fpath=('" + zshFolder() +
               "' $fpath); autoload -Uz compinit; compinit -u -D; PS1='ready''> '\n");
    shell.waitFor("ready> ");
    const auto completes = [&](const std::string& typed, const std::string& rest) {
        shell.type("\025" + typed + '\t');
        shell.waitFor(rest);
    };
    completes("wardlock doc", "tor");
    completes("wardlock plist con", "vert");
    completes("wardlock account kRestrictVib", "rate");
    completes("wardlock-settings --scr", "eenshots");
}

} // namespace
} // namespace wardlock::test
