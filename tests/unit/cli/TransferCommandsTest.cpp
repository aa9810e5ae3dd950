#include "tests/unit/cli/VerbsFixture.h"

#include <filesystem>
#include <sys/stat.h>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

class TransferCommand : public VerbsFixture {
protected:
    const std::string file = folder() / "settings.plist";

    void give(const Value& value) const {
        writeFile("/tmp/given.plist", platform::dataWithPropertyList(value));
    }
    std::string given() const { return onDisk("/tmp/given.plist"); }
    void expectRefusesImport(const Value& value, const std::string& why) const {
        give(value);
        expectRefuses({"import", given()}, 1, "import: cannot import " + given() + ": " + why);
    }
};

TEST_F(TransferCommand, WritesAllSettingsToAFileOfTheUserAlone) {
    expectPrints({"export", file}, "");
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777u, 0600u);
    expectPrints({"export", "-"}, readFile(documentPath));
    EXPECT_EQ(run({"plist", "dump", file}).output, run({"plist", "dump", onDisk(documentPath)}).output);
}

TEST_F(TransferCommand, TakesOverWhatDiffersAndAnnounceEachKeyOnce) {
    expectPrints({"export", file}, "");
    expectPrints({"account", "delete", "Ada"}, "");
    expectPrints({"set", "kEnabled", "off"}, "");
    expectAnnounces({"import", file}, {R"({"key":"kEnabled","value":true,)",
                                       R"({"key":"kAccounts","value":[{"kAccountEnabled":false,)"});
    EXPECT_EQ(stored(), document());
}

TEST_F(TransferCommand, WritesNothingWhereNothingDiffers) {
    expectPrints({"export", file}, "");
    const auto before = std::filesystem::last_write_time(onDisk(documentPath));
    expectAnnounces({"import", file}, {});
    EXPECT_EQ(std::filesystem::last_write_time(onDisk(documentPath)), before);
}

TEST_F(TransferCommand, KeepsTheKeysThatTheFileLacks) {
    give(Dictionary{{kPasscode, "1234"}, {"other", "x"}});
    expectPrints({"import", given()}, "");
    platform::MutableDictionary expected(document("1234"));
    expected.set("other", "x");
    EXPECT_EQ(stored(), expected.copy());
}

TEST_F(TransferCommand, ReadsStandardInput) {
    EXPECT_EQ(run({"import", "-"}, platform::dataWithPropertyList(Dictionary{{kPasscode, "1234"}})).exitCode,
              0);
    EXPECT_EQ(*stored().find(kPasscode), Value("1234"));
}

TEST_F(TransferCommand, RefusesWhatIsNotADocument) {
    expectRefusesImport(Array{}, "its top-level value is not a dictionary");
    expectRefusesImport(Dictionary{{kEnabled, Array{}}}, "kEnabled is not a boolean");
    expectRefusesImport(Dictionary{{kPasscode, 1234}}, "kPasscode is not a string");
    expectRefusesImport(Dictionary{{kPasscode, "12a4"}}, "kPasscode does not have four digits");
    expectRefusesImport(Dictionary{{kAccounts, Dictionary{}}}, "kAccounts is not a list");
    expectRefusesImport(Dictionary{{kAccounts, Array{}}}, "kAccounts is empty");
    expectRefusesImport(Dictionary{{kAccounts, Array{account("A", false), 7}}},
                        "account 2: is not a dictionary");
    expectRefusesImport(Dictionary{{kAccounts, Array{Dictionary{{kRestrictSiri, Array{}}}}}},
                        "account 1: kRestrictSiri is not a boolean");
    expectRefusesImport(Dictionary{{kAccounts, Array{Dictionary{{kAppsRestricted, Array{7}}}}}},
                        "account 1: kAppsRestricted has a value that is not a string");
}

TEST_F(TransferCommand, TakesForABooleanWhatIsReadAsOne) {
    platform::MutableDictionary written(document());
    written.set(kEnabled, 1);
    write(written.copy());
    expectPrints({"export", file}, "");
    write({{kEnabled, false}});
    expectPrints({"import", file}, "");
    EXPECT_EQ(*stored().find(kEnabled), Value(1));
    give(Dictionary{{kEnabled, "no"}});
    expectPrints({"import", given()}, "");
    EXPECT_EQ(*stored().find(kEnabled), Value("no"));
}

TEST_F(TransferCommand, WarnsOfACopyThatCannotBeImported) {
    platform::MutableDictionary written(document());
    written.set(kPasscode, "12345");
    write(written.copy());
    const auto result = run({"export", file});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors,
              "wardlock export: warning: `wardlock import` will refuse this file: kPasscode does "
              "not have four digits\n");
    EXPECT_EQ(run({"import", file}).exitCode, 1);
}

TEST_F(TransferCommand, RefusesFilesThatCannotBeRead) {
    expectRefuses({"import", file}, 1, "import: cannot read " + file + ": No such file or directory");
    writeFile("/tmp/given.plist", "no list");
    expectRefuses({"import", given()}, 3, "import: cannot read " + given() + ": not a property list");
    expectRefuses({"import"}, 2, "import: missing argument FILE (see wardlock import --help)");
    expectRefuses({"export"}, 2, "export: missing argument FILE (see wardlock export --help)");
    expectRefuses({"export", root()}, 1, "export: cannot write " + root() + ": Is a directory");
}

} // namespace
} // namespace wardlock::test
