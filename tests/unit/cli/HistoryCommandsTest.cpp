#include "tests/support/BusFixture.h"
#include "tests/support/OtherUser.h"
#include "tests/unit/cli/CommandFixture.h"

#include <algorithm>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// The verbs about earlier versions, each in a process of its own.
class HistoryCommand : public BusFixture {
protected:
    static constexpr const char* history = "/var/mobile/Library/Preferences/com.tavix.wardlock.plist.history";

    HistoryCommand() {
        // The defaults are the first version.
        wardlockCommand({"status"});
    }
    void set(const std::string& key, const std::string& type, const std::string& value) const {
        const auto result = wardlockCommand({"plist", "set", onDisk(documentPath), key, type, value});
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    }
    static ProcessResult run(const std::vector<std::string>& words) { return wardlockCommand(words); }
    /// The lines without number, time and origin.
    static std::vector<std::string> listed() {
        std::istringstream lines(run({"history", "--json"}).output);
        std::vector<std::string> found;
        for (std::string line; std::getline(lines, line);) {
            const auto json = nlohmann::json::parse(line);
            std::string text = json["action"];
            if (json.contains("of"))
                text += std::to_string(json["of"].get<int>());
            for (const auto& change : json["changes"])
                text += ' ' + change.get<std::string>();
            found.push_back(text);
        }
        return found;
    }
    /// As a program without the library damages the document that it replaces.
    void damage() const {
        removeFile(documentPath);
        writeFile(documentPath, "damage");
    }
};

TEST_F(HistoryCommand, ListsTheYoungestVersionFirstWithTimeOriginAndChange) {
    set("kEnabled", "bool", "false");
    const ProcessResult result = run({"history"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_TRUE(result.output.starts_with("2  20")) << result.output;
    EXPECT_NE(result.output.find("  command          Wardlock off\n1  20"), std::string::npos)
        << result.output;
    EXPECT_TRUE(result.output.ends_with("  command          the first version that was kept\n"))
        << result.output;
}

TEST_F(HistoryCommand, PrintsAnObjectForEachVersionWithJson) {
    set("kEnabled", "bool", "false");
    std::istringstream lines(run({"history", "--json"}).output);
    std::string first;
    std::getline(lines, first);
    const auto json = nlohmann::json::parse(first);
    EXPECT_EQ(json["number"], 2);
    EXPECT_EQ(json["origin"], "command");
    EXPECT_EQ(json["action"], "change");
    EXPECT_EQ(json["changes"], nlohmann::json::array({"Wardlock off"}));
    EXPECT_EQ(json["time"].get<std::string>().size(), std::string("2026-11-22T05:01:25.123Z").size());
    std::string second;
    std::getline(lines, second);
    EXPECT_TRUE(nlohmann::json::parse(second)["changes"].is_null());
}

TEST_F(HistoryCommand, NeverPrintsTheDigitsOfAPasscode) {
    set("kPasscode", "string", "4711");
    set("kPasscode", "string", "1147");
    for (const std::vector<std::string>& words : {std::vector<std::string>{"history"},
                                                  {"history", "--json"},
                                                  {"history", "show", "2"},
                                                  {"history", "show", "2", "--json"},
                                                  {"history", "diff", "1"},
                                                  {"history", "diff", "2", "3"},
                                                  {"undo"},
                                                  {"redo"},
                                                  {"restore", "2"}}) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        EXPECT_EQ((result.output + result.errors).find("4711"), std::string::npos) << words[0];
        EXPECT_EQ((result.output + result.errors).find("1147"), std::string::npos) << words[0];
        EXPECT_FALSE(result.output.empty()) << words[0];
    }
    EXPECT_NE(run({"history", "show", "2"}).output.find("<string>****</string>"), std::string::npos);
    EXPECT_EQ(run({"history", "show", "1"}).output.find("****"), std::string::npos);
}

TEST_F(HistoryCommand, ComparesVersionsWithEachOtherAndWithTheSettings) {
    set("kEnabled", "bool", "false");
    set("kPasscode", "string", "4711");
    EXPECT_EQ(run({"history", "diff", "1"}).output, "Wardlock off\npasscode set\n");
    EXPECT_EQ(run({"history", "diff", "1", "2"}).output, "Wardlock off\n");
    EXPECT_EQ(run({"history", "diff", "2", "1"}).output, "Wardlock on\n");
    EXPECT_EQ(run({"history", "diff", "3"}).output, "");
}

TEST_F(HistoryCommand, UndoesAndRedoes) {
    set("kEnabled", "bool", "false");
    const std::string off = readFile(documentPath);
    EXPECT_EQ(run({"undo"}).output, "Wardlock on\n");
    EXPECT_EQ(run({"redo"}).output, "Wardlock off\n");
    EXPECT_EQ(readFile(documentPath), off);
    EXPECT_EQ(listed(), (std::vector<std::string>{"redo3 Wardlock off", "undo2 Wardlock on",
                                                  "change Wardlock off", "change"}));
}

TEST_F(HistoryCommand, EndsWithAnErrorWhereThereIsNothingToTakeBack) {
    EXPECT_EQ(run({"undo"}).exitCode, 1);
    EXPECT_EQ(run({"undo"}).errors, "wardlock undo: nothing to undo\n");
    EXPECT_EQ(run({"redo"}).errors, "wardlock redo: nothing to redo\n");
}

TEST_F(HistoryCommand, RestoresAVersion) {
    const std::string first = readFile(documentPath);
    set("kEnabled", "bool", "false");
    set("kPasscode", "string", "4711");
    const ProcessResult result = run({"restore", "1"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(result.output, "Wardlock on\npasscode removed\n");
    EXPECT_EQ(readFile(documentPath), first);
    EXPECT_EQ(listed()[0], "restore1 Wardlock on passcode removed");
    EXPECT_EQ(run({"restore", "1"}).errors,
              "wardlock restore: the settings are already those of version 1\n");
}

TEST_F(HistoryCommand, RestoresTheLastGoodVersionOfADamagedDocument) {
    set("kPasscode", "string", "4711");
    const std::string good = readFile(documentPath);
    damage();
    const ProcessResult result = run({"restore"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_EQ(readFile(documentPath), good);
    EXPECT_EQ(readFile(std::string(documentPath) + ".damaged"), "damage");
}

TEST_F(HistoryCommand, RestoresTheLastVersionOfAMissingDocument) {
    set("kPasscode", "string", "4711");
    const std::string good = readFile(documentPath);
    removeFile(documentPath);
    EXPECT_EQ(run({"restore"}).exitCode, 0);
    EXPECT_EQ(readFile(documentPath), good);
}

TEST_F(HistoryCommand, ListsARestoringAndTakesNoEarlierChangeBackInstead) {
    set("kEnabled", "bool", "false");
    const std::string good = readFile(documentPath);
    damage();
    EXPECT_EQ(run({"restore"}).exitCode, 0);
    EXPECT_EQ(listed().front(), "restore2");
    EXPECT_NE(run({"history"}).output.find("restore 2: the settings were damaged or missing\n2  "),
              std::string::npos);
    const ProcessResult undone = run({"undo"});
    EXPECT_EQ(undone.exitCode, 1);
    EXPECT_EQ(undone.errors, "wardlock undo: nothing to undo\n");
    EXPECT_EQ(readFile(documentPath), good);
}

TEST_F(HistoryCommand, ListsADocumentThatWasReplacedByAWholeFile) {
    const std::string backup = onDisk("/backup.plist");
    ASSERT_EQ(run({"export", backup}).exitCode, 0);
    EXPECT_FALSE(fs::exists(backup + ".history"));
    set("kEnabled", "bool", "false");
    ASSERT_EQ(run({"plist", "convert", backup, "-o", onDisk(documentPath)}).exitCode, 0);
    EXPECT_EQ(listed(), (std::vector<std::string>{"change Wardlock on", "change Wardlock off", "change"}));
    EXPECT_NE(run({"history"}).output.find("  command          Wardlock on\n"), std::string::npos);
}

TEST_F(HistoryCommand, LeavesSettingsThatAreNotDamaged) {
    const ProcessResult result = run({"restore"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "wardlock restore: the settings are not damaged; name a version to restore (see "
                             "wardlock history)\n");
}

TEST_F(HistoryCommand, LeavesADamagedDocumentToTheUser) {
    damage();
    run({"history"});
    run({"doctor"});
    EXPECT_EQ(readFile(documentPath), "damage");
}

TEST_F(HistoryCommand, TakesNothingBackInSettingsThatAreMissingOrDamaged) {
    set("kPasscode", "string", "4711");
    set("kEnabled", "bool", "false");
    removeFile(documentPath);
    for (const std::vector<std::string>& words : {std::vector<std::string>{"undo"}, {"undo", "--force"}}) {
        EXPECT_EQ(run(words).errors,
                  "wardlock undo: the settings are missing or damaged (see wardlock restore)\n");
        EXPECT_FALSE(exists(documentPath));
    }
    writeFile(documentPath, "damage");
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"undo"}, {"undo", "--force"}, {"redo"}, {"redo", "--force"}}) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.errors, "wardlock " + words[0] +
                                     ": the settings are damaged: " + onDisk(documentPath) +
                                     " is not a property list with keys (see wardlock doctor)\n");
        EXPECT_EQ(readFile(documentPath), "damage");
    }
}

TEST_F(HistoryCommand, RefusesNumbersThatNameNoVersion) {
    EXPECT_EQ(run({"history", "show", "9"}).errors, "wardlock history show: no version 9 is kept\n");
    EXPECT_EQ(run({"restore", "9"}).exitCode, 1);
    for (const char* word : {"x", "1x", "-1", "99999999999999999999"})
        EXPECT_EQ(run({"history", "show", word}).exitCode, 2) << word;
}

TEST_F(HistoryCommand, SaysWhyNoVersionsAreKept) {
    fs::permissions(onDisk(history), fs::perms(0755));
    const ProcessResult result = run({"history"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.errors.ends_with("is open to other users; chmod 700 closes it\n")) << result.errors;
    EXPECT_NE(run({"undo"}).errors.find("open to other users"), std::string::npos);
    fs::remove_all(onDisk(history));
    fs::create_symlink(onDisk("/tmp"), onDisk(history));
    EXPECT_NE(run({"history"}).errors.find("is a link or a file"), std::string::npos);
}

TEST_F(HistoryCommand, IsCheckedByTheDoctor) {
    const auto check = [] {
        std::istringstream lines(run({"doctor", "--json"}).output);
        for (std::string line; std::getline(lines, line);)
            if (const auto json = nlohmann::json::parse(line); json["check"] == "history")
                return json;
        return nlohmann::json();
    };
    EXPECT_EQ(check()["works"], true);
    EXPECT_EQ(check()["versions"], 1);
    fs::permissions(onDisk(history), fs::perms(0755));
    EXPECT_EQ(check()["works"], false);
    EXPECT_EQ(check()["needed"], false);
    fs::remove_all(onDisk(history));
    EXPECT_EQ(check()["text"], "no versions are kept yet");
    EXPECT_FALSE(exists(history)) << "the doctor creates nothing";
    damage();
    EXPECT_NE(run({"doctor"}).output.find("Replace it by the last good version: wardlock restore"),
              std::string::npos);
}

TEST_F(HistoryCommand, KeepsNamesOnOneLine) {
    writeFile(documentPath,
              xml("<dict><key>kEnabled</key><true/><key>kPasscode</key><string/><key>kAccounts</key>"
                  "<array><dict><key>kAccountName</key><string>Tom\nrm -r</string></dict></array>"
                  "</dict>"));
    const std::string output = run({"history"}).output;
    EXPECT_EQ(std::ranges::count(output, '\n'), static_cast<std::ptrdiff_t>(listed().size())) << output;
}

TEST_F(HistoryCommand, AnnouncesWhatItTakesBack) {
    set("kEnabled", "bool", "false");
    Process watch(command, {"watch", "--json"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    run({"undo"});
    EXPECT_EQ(watch.readLine(),
              R"({"key":"kEnabled","value":true,"tweakEnabled":false,"accountEnabled":false})");
}

} // namespace
} // namespace wardlock::test
