#include "tests/support/BusFixture.h"
#include "tests/unit/cli/CommandFixture.h"

#include <csignal>
#include <filesystem>

namespace wardlock::test {
namespace {

const std::string threeAccounts =
    xml("<dict><key>kEnabled</key><true/><key>kPasscode</key><string>1234</string><key>kAccounts</key><array>"
        "<dict><key>kAccountEnabled</key><false/><key>kAccountName</key><string>Ada</string></dict>"
        "<dict><key>kAccountEnabled</key><true/><key>kAccountName</key><string>Ben</string>"
        "<key>kRestrictSiri</key><true/><key>kRestrictCC</key><false/><key>kHideApps</key><true/>"
        "<key>kAppsRestricted</key><array><string>org.example.game</string></array></dict>"
        "<dict><key>kAccountEnabled</key><true/><key>kAccountName</key><string>Cleo</string></dict>"
        "</array></dict>");

class SettingsCommand : public BusFixture {};

TEST_F(SettingsCommand, PrintsTheEnabledAccountAndItsRestrictionsForStatus) {
    writeFile(documentPath, threeAccounts);
    const ProcessResult result = wardlockCommand({"status", "--json"});
    EXPECT_EQ(result.exitCode, 0) << result.errors;
    EXPECT_TRUE(result.output.starts_with(
        R"({"enabled":true,"tweakEnabled":true,"account":{"index":1,"name":"Ben",)"
        R"("restrictions":["kHideApps","kRestrictSiri"],"apps":["org.example.game"]},"passcode":true,"since":")"))
        << result.output;
    EXPECT_TRUE(wardlockCommand({"status"})
                    .output.starts_with("Master switch: on\nIn force: yes\n"
                                        "Passcode: set\n"
                                        "Enabled account: Ben (account 2 of 3)\n"
                                        "Restrictions: Hide Icons, Siri\n"
                                        "Restricted apps: 1 app (org.example.game)\n"
                                        "Since: 2"));
}

TEST_F(SettingsCommand, CreatesAMissingDocumentForStatus) {
    EXPECT_TRUE(wardlockCommand({"status", "--json"})
                    .output.starts_with(
                        R"({"enabled":true,"tweakEnabled":false,"account":null,"passcode":false,"since":")"));
    EXPECT_TRUE(exists(documentPath));
}

TEST_F(SettingsCommand, CreatesTheDocumentOfANewDeviceRootForGet) {
    std::filesystem::remove_all(root());
    EXPECT_EQ(wardlockCommand({"get", "kEnabled"}).output, "true\n");
    EXPECT_TRUE(exists(documentPath));
}

TEST_F(SettingsCommand, PrintsForStatusThatTheMasterSwitchIsOff) {
    writeFile(documentPath,
              xml("<dict><key>kEnabled</key><false/><key>kPasscode</key><string/><key>kAccounts</key>"
                  "<array><dict><key>kAccountEnabled</key><true/></dict></array></dict>"));
    EXPECT_TRUE(
        wardlockCommand({"status", "--json"})
            .output.starts_with(
                R"({"enabled":false,"tweakEnabled":false,"account":{"index":0,"name":null,"restrictions":[],"apps":[]},)"));
    EXPECT_TRUE(wardlockCommand({"status"})
                    .output.starts_with("Master switch: off\nIn force: no\n"
                                        "Passcode: not set\n"
                                        "Enabled account: unnamed (account 1 of 1)\n"
                                        "Restrictions: none\nRestricted apps: none\n"));
}

TEST_F(SettingsCommand, PrintsEachNameOfStatusOnOneLineWithoutControlCharacters) {
    writeFile(
        documentPath,
        xml("<dict><key>kEnabled</key><true/><key>kPasscode</key><string/><key>kAccounts</key><array><dict>"
            "<key>kAccountEnabled</key><true/><key>kAccountName</key><string>a\nb\x7F</string>"
            "<key>kAppsRestricted</key><array><string>c\nd</string></array></dict></array></dict>"));
    EXPECT_TRUE(wardlockCommand({"status"})
                    .output.starts_with("Master switch: on\nIn force: yes\nPasscode: not set\n"
                                        "Enabled account: a b\\x7f (account 1 of 1)\n"
                                        "Restrictions: none\nRestricted apps: 1 app (c d)\n"));
}

TEST_F(SettingsCommand, PrintsTopLevelKeysForGet) {
    writeFile(documentPath, threeAccounts);
    EXPECT_EQ(wardlockCommand({"get", "kEnabled"}).output, "true\n");
    EXPECT_EQ(wardlockCommand({"get", "kPasscode"}).output, "1234\n");
    EXPECT_EQ(wardlockCommand({"get", "kPasscode", "--json"}).output, "\"1234\"\n");
    EXPECT_EQ(wardlockCommand({"get", "kPasscode", "--typed"}).output, "{\"string\":\"1234\"}\n");
}

TEST_F(SettingsCommand, PrintsKeysOfTheEnabledAccountForAccount) {
    writeFile(documentPath, threeAccounts);
    EXPECT_EQ(wardlockCommand({"account", "kAccountName"}).output, "Ben\n");
    EXPECT_EQ(wardlockCommand({"account", "kRestrictCC", "--json"}).output, "false\n");
    EXPECT_EQ(wardlockCommand({"account", "kRestrictCC", "--typed"}).output, "{\"bool\":false}\n");
}

TEST_F(SettingsCommand, FailsForMissingKeys) {
    writeFile(documentPath, threeAccounts);
    for (const char* verb : {"get", "account", "announce"}) {
        const ProcessResult result = wardlockCommand({verb, "kNothing"});
        EXPECT_EQ(result.exitCode, 1) << verb;
        EXPECT_EQ(result.output, "") << verb;
        EXPECT_NE(result.errors.find("kNothing"), std::string::npos) << verb;
    }
}

TEST_F(SettingsCommand, FailsForAccountWhenNoneIsEnabled) {
    EXPECT_EQ(wardlockCommand({"account", "kAccountName"}).exitCode, 1);
}

TEST_F(SettingsCommand, PrintsForWatchAChangeThatAnotherProcessAnnounces) {
    writeFile(documentPath, threeAccounts);
    Process watch(command, {"watch", "--typed"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    EXPECT_EQ(wardlockCommand({"plist", "set", onDisk(documentPath), "kEnabled", "bool", "false"}).exitCode,
              0);
    EXPECT_EQ(wardlockCommand({"announce", "kEnabled"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(),
              R"({"key":"kEnabled","value":{"bool":false},"tweakEnabled":false,"accountEnabled":true})");
    EXPECT_EQ(wardlockCommand({"announce", "kRestrictSiri"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(),
              R"({"key":"kRestrictSiri","value":{"bool":true},"tweakEnabled":false,"accountEnabled":true})");
}

TEST_F(SettingsCommand, PrintsChangesAsTextForWatch) {
    writeFile(documentPath, threeAccounts);
    Process watch(command, {"watch"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    EXPECT_EQ(wardlockCommand({"announce", "kPasscode"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(), R"(kPasscode = "1234"; in force, an account is enabled)");
    EXPECT_EQ(wardlockCommand({"announce", "kRestrictSiri"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(), "Siri (kRestrictSiri) = on; in force, an account is enabled");
}

TEST_F(SettingsCommand, EndsWatchCleanlyOnEitherSignal) {
    for (const int signal : {SIGINT, SIGTERM}) {
        Process watch(command, {"watch"});
        ASSERT_TRUE(watch.waitForError("Watching"));
        watch.send(signal);
        const ProcessResult result = watch.wait();
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.signal, 0);
        EXPECT_EQ(result.output, "");
    }
}

TEST_F(SettingsCommand, EndsWatchWhenItsReaderIsGone) {
    Process watch(command, {"watch"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    watch.closeOutput();
    const ProcessResult result = watch.wait();
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.errors, "Watching for changes; stop with SIGINT or SIGTERM.\n");
}

TEST_F(SettingsCommand, PrintsForWatchPlainValuesAsJson) {
    writeFile(documentPath, threeAccounts);
    Process watch(command, {"watch", "--json"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    EXPECT_EQ(wardlockCommand({"announce", "kRestrictSiri"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(),
              R"({"key":"kRestrictSiri","value":true,"tweakEnabled":true,"accountEnabled":true})");
}

TEST_F(SettingsCommand, RunsACommandForEachChangeThatWatchReceives) {
    writeFile(documentPath, threeAccounts);
    Process watch(command, {"watch", "--exec", "echo \"$WARDLOCK_KEY\"; cat; exit 3"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    EXPECT_EQ(wardlockCommand({"announce", "kRestrictSiri"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(), "kRestrictSiri");
    EXPECT_EQ(watch.readLine(),
              R"({"key":"kRestrictSiri","value":true,"tweakEnabled":true,"accountEnabled":true})");
    EXPECT_TRUE(watch.waitForError("the command ended with exit code 3"));
    EXPECT_EQ(wardlockCommand({"announce", "kPasscode"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(), "kPasscode");
}

TEST_F(SettingsCommand, EndsWatchTogetherWithTheCommandThatRuns) {
    Process watch(command, {"watch", "--exec", "echo running; exec sleep 1000"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    EXPECT_EQ(wardlockCommand({"announce", "kEnabled"}).exitCode, 0);
    EXPECT_EQ(watch.readLine(), "running");
    watch.send(SIGTERM);
    // The command shares the output: its end shows that the command has ended, too.
    EXPECT_EQ(watch.wait().exitCode, 0);
}

TEST_F(SettingsCommand, PrintsForStatusTheProcessesThatListen) {
    writeFile(documentPath, threeAccounts);
    const auto listens = [](const std::string& output) {
        return output.substr(output.find("\nListening: ") + 1);
    };
    EXPECT_EQ(listens(wardlockCommand({"status"}).output), "Listening: no process\n");
    Process watch(command, {"watch"});
    ASSERT_TRUE(watch.waitForError("Watching"));
    const std::string process = std::to_string(watch.id());
    EXPECT_EQ(listens(wardlockCommand({"status"}).output), "Listening: wardlock (process " + process + ")\n");
    EXPECT_TRUE(wardlockCommand({"status", "--json"})
                    .output.ends_with(R"("listeners":[{"process":)" + process +
                                      R"(,"program":"wardlock"}]})"
                                      "\n"));
}

TEST_F(SettingsCommand, PrintsForStatusTheWholeNameOfAListener) {
    const std::string name = "a-listener-with-a-long-name";
    std::filesystem::copy_file(command, folder() / name);
    ProcessSetup setup;
    setup.environment["LD_LIBRARY_PATH"] = std::filesystem::path(command).parent_path().parent_path() / "lib";
    Process watch(folder() / name, {"watch"}, setup);
    ASSERT_TRUE(watch.waitForError("Watching"));
    const std::string output = wardlockCommand({"status"}).output;
    EXPECT_NE(output.find("\nListening: " + name + " (process"), std::string::npos) << output;
}

TEST_F(SettingsCommand, PrintsForStatusNoListenersWithoutABus) {
    ProcessSetup setup;
    setup.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (folder() / "nothing-here");
    EXPECT_TRUE(wardlockCommand({"status"}, setup)
                    .output.ends_with("Listening: unknown: the bus does not list them\n"));
    EXPECT_TRUE(wardlockCommand({"status", "--json"}, setup).output.ends_with("\"listeners\":null}\n"));
}

TEST_F(SettingsCommand, PrintsForStatusTheLastChangeInUtcAndInTheZoneOfTheUser) {
    writeFile(documentPath, threeAccounts);
    const std::chrono::sys_seconds noon =
        std::chrono::sys_days(std::chrono::year(2026) / 1 / 31) + std::chrono::hours(12);
    const auto time = std::chrono::file_clock::from_sys(noon);
    std::filesystem::last_write_time(onDisk(documentPath), time);
    ProcessSetup setup;
    setup.environment["TZ"] = "XST-5";
    EXPECT_NE(wardlockCommand({"status"}, setup).output.find("\nSince: 2026-01-31 17:00:00\n"),
              std::string::npos);
    EXPECT_NE(wardlockCommand({"status", "--json"}, setup).output.find(R"("since":"2026-01-31T12:00:00Z")"),
              std::string::npos);
}

TEST_F(SettingsCommand, SucceedsForAnnounceWithoutABus) {
    ProcessSetup setup;
    setup.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (folder() / "nothing-here");
    EXPECT_EQ(wardlockCommand({"announce", "kEnabled"}, setup).exitCode, 0);
}

} // namespace
} // namespace wardlock::test
