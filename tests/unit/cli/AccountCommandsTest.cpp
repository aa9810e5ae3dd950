#include "tests/unit/cli/VerbsFixture.h"

#include <filesystem>

namespace wardlock::test {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;
using Names = std::vector<std::string>;

class AccountCommand : public VerbsFixture {};

TEST_F(AccountCommand, ListsTheAccountsWithTheirNumbers) {
    expectPrints({"accounts"}, "1   Ada   off  7 restrictions, 1 app\n"
                               "2   Ben   on   7 restrictions, 1 app\n"
                               "3   Cleo  off  7 restrictions, 1 app\n");
    expectPrints({"accounts", "--json"},
                 R"({"number":1,"name":"Ada","enabled":false,"restrictions":7,"apps":1})"
                 "\n"
                 R"({"number":2,"name":"Ben","enabled":true,"restrictions":7,"apps":1})"
                 "\n"
                 R"({"number":3,"name":"Cleo","enabled":false,"restrictions":7,"apps":1})"
                 "\n");
}

TEST_F(AccountCommand, ListsTheDefaultAccountWhereThereIsNoDocument) {
    removeFile(documentPath);
    expectPrints({"accounts"}, "1   Default  off  7 restrictions, 9 apps\n");
    EXPECT_EQ(stored(), DefaultSettings());
}

TEST_F(AccountCommand, ListsRecordsThatAreNotDictionariesAsNameless) {
    write({{kEnabled, true}, {kPasscode, ""}, {kAccounts, Array{1, account("Ben", true)}}});
    expectPrints({"accounts"}, "1        off  0 restrictions, 0 apps\n"
                               "2   Ben  on   7 restrictions, 1 app\n");
}

TEST_F(AccountCommand, ShowsEverySettingByItsLabel) {
    const ProcessResult result = run({"account", "show", "Ben"});
    EXPECT_TRUE(result.output.starts_with("Enabled                      on\n"
                                          "Account Name                 Ben\n"
                                          "Restricted Apps              1 app (org.example.stored)\n"
                                          "Disable Lockscreen Passcode  on\n"
                                          "Hide Icons                   off\n"))
        << result.output;
    EXPECT_NE(result.output.find("\nSiri                         off\n"), std::string::npos);
}

TEST_F(AccountCommand, ShowsTheRecordAsPlainOrTypedJson) {
    EXPECT_TRUE(
        run({"account", "show", "3", "--json"})
            .output.starts_with(R"({"number":3,"settings":{"kAccountEnabled":false,"kAccountName":"Cleo",)"));
    EXPECT_TRUE(
        run({"account", "show", "3", "--typed"})
            .output.starts_with(R"({"number":3,"settings":{"dict":[["kAccountEnabled",{"bool":false}],)"));
}

TEST_F(AccountCommand, CreatesAnAccountLikeTheDefaultOneAndPrintItsNumber) {
    expectPrints({"account", "add", "Kim"}, "4\n");
    EXPECT_EQ(names(), (Names{"Ada", "Ben", "Cleo", "Kim"}));
    platform::MutableDictionary expected(DefaultSettings().find(kAccounts)->array().at(0).dictionary());
    expected.set(kAccountName, "Kim");
    EXPECT_EQ(stored().find(kAccounts)->array().at(3), Value(expected.copy()));
    EXPECT_EQ(*stored().find("foreign"), Value(7));
}

TEST_F(AccountCommand, AnnouncesTheNewRecordAlone) {
    expectAnnounces({"account", "add", "Kim"},
                    {R"({"key":"kAccounts","value":{"kAccountEnabled":false,"kAccountName":"Kim",)"});
}

TEST_F(AccountCommand, CreatesTheFirstAccountOfANewDeviceRoot) {
    std::filesystem::remove_all(root());
    expectPrints({"account", "add", "Kim"}, "2\n");
    EXPECT_EQ(names(), (Names{"Default", "Kim"}));
}

TEST_F(AccountCommand, RenamesAnAccountAndCallAnEmptyNameBlank) {
    expectPrints({"account", "rename", "Ada", " "}, "");
    expectPrints({"account", "rename", "3", ""}, "");
    EXPECT_EQ(names(), (Names{" ", "Ben", "Blank"}));
    expectAnnounces({"account", "rename", "3", "Cleo"}, {R"({"key":"kAccountName","value":"Cleo",)"});
}

TEST_F(AccountCommand, EnablesOneAccountInPlaceOfAnother) {
    expectAnnounces({"account", "enable", "Cleo"}, {R"({"key":"kAccountEnabled","value":true,)"});
    EXPECT_EQ(stored(1, kAccountEnabled), Value(false));
    EXPECT_EQ(stored(2, kAccountEnabled), Value(true));
}

TEST_F(AccountCommand, DisablesAnAccountAndEnableNoOther) {
    expectAnnounces({"account", "disable", "Ben"}, {R"({"key":"kAccountEnabled","value":false,)"});
    for (std::size_t position = 0; position < 3; ++position)
        EXPECT_EQ(stored(position, kAccountEnabled), Value(false));
}

TEST_F(AccountCommand, DeletesAnAccountAndAnnounceTheList) {
    expectAnnounces({"account", "delete", "Ada"},
                    {R"({"key":"kAccounts","value":[{"kAccountEnabled":true,"kAccountName":"Ben",)"});
    EXPECT_EQ(names(), (Names{"Ben", "Cleo"}));
}

TEST_F(AccountCommand, BringsTheDefaultAccountBackAfterTheLastDeletion) {
    for (const char* name : {"Ada", "Ben", "Cleo"})
        expectPrints({"account", "delete", name}, "");
    EXPECT_EQ(*stored().find(kAccounts), *DefaultSettings().find(kAccounts));
}

TEST_F(AccountCommand, ListsTheAccountsThatANameFits) {
    write({{kEnabled, true},
           {kPasscode, ""},
           {kAccounts, Array{account("Kim", false), account("kim", false), account("1", false),
                             account("Kim", false)}}});
    expectRefuses({"account", "enable", "Kim"}, 1,
                  "account enable: 'Kim' matches 2 accounts: 1 (Kim), 4 (Kim)");
    expectRefuses({"account", "enable", "KIM"}, 1,
                  "account enable: no account 'KIM'; did you mean 1 (Kim), 2 (kim), 4 (Kim)?");
    expectRefuses({"account", "enable", "1"}, 1, "account enable: '1' matches 2 accounts: 1 (Kim), 3 (1)");
    expectPrints({"account", "enable", "#1"}, "");
    expectPrints({"account", "rename", "kim", "Ida"}, "");
    EXPECT_EQ(names(), (Names{"Kim", "Ida", "1", "Kim"}));
    EXPECT_EQ(stored(0, kAccountEnabled), Value(true));
}

TEST_F(AccountCommand, ChangesNoAccountWithASimilarName) {
    expectPrints({"account", "add", "ada"}, "4\n");
    expectPrints({"account", "delete", "ada"}, "");
    expectRefuses({"account", "delete", "ada"}, 1, "account delete: no account 'ada'; did you mean 1 (Ada)?");
    EXPECT_EQ(names(), (Names{"Ada", "Ben", "Cleo"}));
}

TEST_F(AccountCommand, TakesANumberSignForAPositionAlsoWhereAnAccountHasThatName) {
    write({{kEnabled, true},
           {kPasscode, ""},
           {kAccounts, Array{account("2", false), account("2", false), account("#2", false)}}});
    expectPrints({"account", "rename", "#2", "Ida"}, "");
    expectPrints({"account", "rename", "#3", "Tom"}, "");
    EXPECT_EQ(names(), (Names{"2", "Ida", "Tom"}));
    expectRefuses({"account", "enable", "#4"}, 1, "account enable: no account '#4'");
    expectRefuses({"account", "enable", "#0"}, 1, "account enable: no account '#0'");
}

TEST_F(AccountCommand, RefusesAnAccountThatDoesNotExist) {
    for (const char* verb : {"show", "enable", "disable", "delete"}) {
        expectRefuses({"account", verb, "Clea"}, 1,
                      "account " + std::string(verb) + ": no account 'Clea'; did you mean 'Cleo'?");
        expectRefuses({"account", verb, "4"}, 1, "account " + std::string(verb) + ": no account '4'");
    }
}

TEST_F(AccountCommand, RefusesNamesThatNoDocumentCanStore) {
    expectRefuses({"account", "add", ""}, 2,
                  "account add: the name of an account must not be empty (see wardlock account add --help)");
    expectRefuses({"account", "add", "a\xFF"}, 2,
                  "account add: names and values must be valid UTF-8 (see wardlock account add --help)");
    expectRefuses(
        {"account", "rename", "Ada", "a\xFF"}, 2,
        "account rename: names and values must be valid UTF-8 (see wardlock account rename --help)");
}

TEST_F(AccountCommand, RefusesADocumentWithoutAccounts) {
    write({{kEnabled, true}, {kPasscode, ""}, {kAccounts, Array{}}});
    for (const char* verb : {"enable", "disable", "delete"})
        expectRefuses({"account", verb, "1"}, 1,
                      "account " + std::string(verb) + ": the document has no account to change");
    expectRefuses({"account", "show", "1"}, 1, "account show: the document has no accounts");
    write({{kEnabled, true}, {kPasscode, ""}, {kAccounts, 7}});
    expectRefuses({"account", "add", "Kim"}, 1, "account add: the document has no list of accounts");
}

TEST_F(AccountCommand, IsAlsoTheVerbThatPrintsAKeyOfTheEnabledAccount) {
    EXPECT_EQ(run({"account", "kAccountName"}).output, "Ben\n");
    EXPECT_EQ(run({"account"}).exitCode, 2);
    EXPECT_NE(run({"account", "--help"}).output.find("\n  account rename "), std::string::npos);
}

} // namespace
} // namespace wardlock::test
