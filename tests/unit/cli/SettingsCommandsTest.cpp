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
    EXPECT_EQ(result.output, R"({"enabled":true,"tweakEnabled":true,"account":{"index":1,"name":"Ben",)"
                             R"("restrictions":["kHideApps","kRestrictSiri"],"apps":["org.example.game"]}})"
                             "\n");
    EXPECT_EQ(wardlockCommand({"status"}).output, "Master switch: on\nIn force: yes\n"
                                                  "Enabled account: Ben (account 2 of 3)\n"
                                                  "Restrictions:\n  kHideApps\n  kRestrictSiri\n"
                                                  "Restricted apps:\n  org.example.game\n");
}

TEST_F(SettingsCommand, CreatesAMissingDocumentForStatus) {
    EXPECT_EQ(wardlockCommand({"status", "--json"}).output,
              "{\"enabled\":true,\"tweakEnabled\":false,\"account\":null}\n");
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
    EXPECT_EQ(
        wardlockCommand({"status", "--json"}).output,
        R"({"enabled":false,"tweakEnabled":false,"account":{"index":0,"name":null,"restrictions":[],"apps":[]}})"
        "\n");
    EXPECT_EQ(wardlockCommand({"status"}).output, "Master switch: off\nIn force: no\n"
                                                  "Enabled account: unnamed (account 1 of 1)\n"
                                                  "Restrictions: nothing\nRestricted apps: nothing\n");
}

TEST_F(SettingsCommand, PrintsEachNameOfStatusOnOneLineWithoutControlCharacters) {
    writeFile(
        documentPath,
        xml("<dict><key>kEnabled</key><true/><key>kPasscode</key><string/><key>kAccounts</key><array><dict>"
            "<key>kAccountEnabled</key><true/><key>kAccountName</key><string>a\nb\x7F</string>"
            "<key>kAppsRestricted</key><array><string>c\nd</string></array></dict></array></dict>"));
    EXPECT_EQ(wardlockCommand({"status"}).output, "Master switch: on\nIn force: yes\n"
                                                  "Enabled account: a b\\x7f (account 1 of 1)\n"
                                                  "Restrictions: nothing\nRestricted apps:\n  c d\n");
}

TEST_F(SettingsCommand, PrintsTopLevelKeysForGet) {
    writeFile(documentPath, threeAccounts);
    EXPECT_EQ(wardlockCommand({"get", "kEnabled"}).output, "true\n");
    EXPECT_EQ(wardlockCommand({"get", "kPasscode"}).output, "1234\n");
    EXPECT_EQ(wardlockCommand({"get", "kPasscode", "--json"}).output, "{\"string\":\"1234\"}\n");
}

TEST_F(SettingsCommand, PrintsKeysOfTheEnabledAccountForAccount) {
    writeFile(documentPath, threeAccounts);
    EXPECT_EQ(wardlockCommand({"account", "kAccountName"}).output, "Ben\n");
    EXPECT_EQ(wardlockCommand({"account", "kRestrictCC", "--json"}).output, "{\"bool\":false}\n");
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
    Process watch(command, {"watch", "--json"});
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
    EXPECT_EQ(watch.readLine(), R"(kPasscode = {"string":"1234"}; in force, an account is enabled)");
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
    EXPECT_EQ(watch.wait().exitCode, 1);
}

TEST_F(SettingsCommand, SucceedsForAnnounceWithoutABus) {
    ProcessSetup setup;
    setup.environment["DBUS_SESSION_BUS_ADDRESS"] = "unix:path=" + (folder() / "nothing-here");
    EXPECT_EQ(wardlockCommand({"announce", "kEnabled"}, setup).exitCode, 0);
}

} // namespace
} // namespace wardlock::test
