#include "tests/unit/cli/VerbsFixture.h"

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Value;

class SetCommand : public VerbsFixture {};

TEST_F(SetCommand, ChangesTheEnabledAccountByKeyOrLabel) {
    expectPrints({"set", "kRestrictSiri", "on"}, "");
    expectPrints({"set", "Control Center", "off"}, "");
    expectPrints({"set", "hide-icons", "yes"}, "");
    EXPECT_EQ(stored(1, kRestrictSiri), Value(true));
    EXPECT_EQ(stored(1, kRestrictCC), Value(false));
    EXPECT_EQ(stored(1, kHideApps), Value(true));
    EXPECT_EQ(stored(0, kRestrictSiri), Value(false));
}

TEST_F(SetCommand, ChangesTheAccountThatIsNamed) {
    expectPrints({"set", "--account", "Cleo", "siri", "on"}, "");
    expectPrints({"set", "--account=1", "Enabled", "on"}, "");
    expectPrints({"set", "account-name", "Dora", "--account", "3"}, "");
    EXPECT_EQ(stored(2, kRestrictSiri), Value(true));
    EXPECT_EQ(stored(0, kAccountEnabled), Value(true));
    EXPECT_EQ(stored(1, kAccountEnabled), Value(false));
    EXPECT_EQ(stored(2, kAccountName), Value("Dora"));
}

TEST_F(SetCommand, ChangesTheOnlyAccountWhereNoneIsEnabled) {
    write(DefaultSettings());
    expectPrints({"set", "siri", "on"}, "");
    EXPECT_EQ(stored(0, kRestrictSiri), Value(true));
}

TEST_F(SetCommand, AnnouncesTheKeyAndItsValueOnce) {
    expectAnnounces({"set", "siri", "ON"}, {R"({"key":"kRestrictSiri","value":true,)"});
    expectAnnounces({"set", "kEnabled", "0"}, {R"({"key":"kEnabled","value":false,)"});
    EXPECT_EQ(*stored().find(kEnabled), Value(false));
}

TEST_F(SetCommand, ListsTheSettingsThatANameFits) {
    expectRefuses(
        {"set", "Enabled", "on"}, 1,
        "set: 'Enabled' matches 2 settings: kEnabled (of all accounts), kAccountEnabled (of an account)");
    expectRefuses(
        {"get", "enabled"}, 1,
        "get: 'enabled' matches 2 settings: kEnabled (of all accounts), kAccountEnabled (of an account)");
}

TEST_F(SetCommand, RefusesWhatItCannotSet) {
    const std::string help = " (see wardlock set --help)";
    expectRefuses({"set", "siri", "maybe"}, 2, "set: 'maybe' is neither on nor off" + help);
    expectRefuses({"set", "siri"}, 2, "set: missing argument VALUE" + help);
    expectRefuses({"set", "siri", "on", "off"}, 2, "set: unexpected argument 'off'" + help);
    expectRefuses({"set", "--acount", "Ben", "siri", "on"}, 2,
                  "set: unknown option '--acount'; did you mean '--account'?" + help);
    expectRefuses({"set", "passcode", "1234"}, 2,
                  "set: use `wardlock passcode set` to change kPasscode" + help);
    expectRefuses({"set", "kAccounts", "on"}, 2, "set: use `wardlock account` to change kAccounts" + help);
    expectRefuses({"set", "restricted apps", "on"}, 2,
                  "set: use `wardlock restrict` to change kAppsRestricted" + help);
    expectRefuses({"set", "account name", "\xFF"}, 2, "set: names and values must be valid UTF-8" + help);
    expectRefuses({"set", "Sirj", "on"}, 1, "set: no setting 'Sirj'; did you mean 'Siri'?");
    expectRefuses({"set", "--account", "Ben", "kEnabled", "on"}, 1,
                  "set: kEnabled is a setting of all accounts; leave out --account");
    expectRefuses({"set", "--account", "Tom", "siri", "on"}, 1, "set: no account 'Tom'");
}

TEST_F(SetCommand, RefusesToChooseAmongAccountsThatAreNotEnabled) {
    expectPrints({"account", "disable", "Ben"}, "");
    expectRefuses({"set", "siri", "on"}, 1, "set: no account is enabled; name one with --account");
    expectRefuses({"get", "siri"}, 1, "get: no account is enabled; name one with --account");
}

TEST_F(SetCommand, GetsWhatItHasSet) {
    expectPrints({"get", "siri"}, "false\n");
    expectPrints({"get", "--account", "3", "kAccountName"}, "Cleo\n");
    expectPrints({"get", "--account", "Ada", "Restricted Apps", "--json"}, "[\"org.example.stored\"]\n");
    expectPrints({"get", "foreign", "--json"}, "7\n");
    expectPrints({"get", "foreign", "--typed"}, "{\"int\":\"7\"}\n");
    expectPrints({"get", "passcode"}, "\n");
}

TEST_F(SetCommand, RefusesADamagedDocumentWithAWayOut) {
    writeFile(documentPath, "<plist><dict>");
    expectRefuses({"set", "kEnabled", "off"}, 1,
                  "set: the settings are damaged: " + onDisk(documentPath) +
                      " is not a property list with keys (see wardlock doctor)");
    EXPECT_EQ(readFile(documentPath), "<plist><dict>");
}

} // namespace
} // namespace wardlock::test
