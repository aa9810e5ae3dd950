#include "settings/DefaultSettings.h"
#include "settings/Keys.h"
#include "tests/support/SettingsApplicationFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {
namespace {

using platform::Dictionary;
using platform::Value;

using Labels = std::vector<std::string>;

/// The bundle of this build, loaded and used as a user does.
class BundleInSettings : public SettingsApplicationFixture {
protected:
    void open(std::initializer_list<std::string_view> accountNames, double transitionSeconds = 0) {
        writeDocument(documentOf(accountNames));
        start(transitionSeconds);
        tap("Wardlock");
        clock.step(transitionSeconds);
    }
    Labels accountNames() const {
        const Dictionary stored = document();
        Labels names;
        for (const auto& account : stored.find(kAccounts)->array())
            names.emplace_back(account.dictionary().find(kAccountName)->string());
        return names;
    }
    bool stored(std::size_t account, std::string_view key) const {
        const Dictionary stored = document();
        return platform::boolValue(stored.find(kAccounts)->array().at(account).dictionary().find(key));
    }
    std::string passcode() const { return std::string(document().find(kPasscode)->string()); }
    std::string keypadText() { return settings().screen().overlay()->keypad->shownText(); }
    void endFade() { clock.step(0.41); }
};

TEST_F(BundleInSettings, ShowsTheRootPage) {
    open({"Ann", "Ben"});
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_EQ(labels(), (Labels{"Enabled", "Passcode", "Ann", "Ben", "@TavixCo", "support@tavix.example",
                                "Change Log", "More From Tavix"}));
}

TEST_F(BundleInSettings, ShowsTheContactRowsWithTheirIcons) {
    open({});
    EXPECT_NE(row("@TavixCo").icon, nullptr);
    EXPECT_NE(row("support@tavix.example").icon, nullptr);
    EXPECT_EQ(row("Change Log").icon, nullptr);
}

TEST_F(BundleInSettings, TitlesAnAccountsPageWithItsName) {
    open({"Ann", "Ben"});
    tap("Ben");
    EXPECT_EQ(page().title(), "Ben");
    EXPECT_EQ(settings().screen().backTitle(), "Wardlock");
}

TEST_F(BundleInSettings, EditsTheAccountWhoseRowWasTapped) {
    open({"Ann", "Ben", "Cleo"});
    tap("Cleo");
    tap("Siri");
    EXPECT_TRUE(row("Siri").isOn());
    EXPECT_FALSE(stored(0, kRestrictSiri));
    EXPECT_FALSE(stored(1, kRestrictSiri));
    EXPECT_TRUE(stored(2, kRestrictSiri));
    ASSERT_TRUE(settings().page().goBack());
    tap("Ben");
    EXPECT_FALSE(row("Siri").isOn());
    tap("Camera");
    EXPECT_TRUE(stored(1, kRestrictCamera));
    EXPECT_FALSE(stored(2, kRestrictCamera));
}

TEST_F(BundleInSettings, CountsAmongItsRowsAnEntryThatIsNotAnAccount) {
    platform::MutableDictionary damaged(documentOf({"Ann", "Ben"}));
    platform::MutableArray accounts(damaged.find(kAccounts)->array());
    accounts.insert(0, "no account");
    damaged.set(kAccounts, accounts.copy());
    writeDocument(damaged.copy());
    start();
    tap("Wardlock");
    tap("Ben");
    EXPECT_EQ(row("Account Name").text, "Ben");
    tap("Siri");
    EXPECT_FALSE(stored(1, kRestrictSiri));
    EXPECT_TRUE(stored(2, kRestrictSiri));
}

TEST_F(BundleInSettings, LeavesAnAccountWhosePlaceAnotherAccountTook) {
    open({"Ann", "Ben", "Cleo"});
    tap("Ben");
    changeElsewhere(documentOf({"Ben", "Cleo"}));
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_NE(settings().screen().notice(), "");
    tap("Ben");
    tap("Siri");
    EXPECT_TRUE(stored(0, kRestrictSiri));
    EXPECT_FALSE(stored(1, kRestrictSiri));
}

TEST_F(BundleInSettings, WritesNothingOnASwitchOfAnAccountThatIsGone) {
    open({"Ann", "Ben"});
    tap("Ben");
    writeDocument(documentOf({"Ann"}));
    const std::string before = readFile(documentPath);
    EXPECT_FALSE(settings().page().tapRow(pathOf("Siri")));
    EXPECT_EQ(readFile(documentPath), before);
    EXPECT_EQ(page().title(), "Wardlock");
}

TEST_F(BundleInSettings, EnablesOneAccountAtATime) {
    open({"Ann", "Ben"});
    tap("Ann");
    tap("Enabled");
    ASSERT_TRUE(settings().page().goBack());
    tap("Ben");
    tap("Enabled");
    EXPECT_FALSE(stored(0, kAccountEnabled));
    EXPECT_TRUE(stored(1, kAccountEnabled));
    ASSERT_TRUE(settings().page().goBack());
    tap("Ann");
    EXPECT_FALSE(row("Enabled").isOn());
}

TEST_F(BundleInSettings, StoresANameBeforeThePageIsLeft) {
    open({"Ann"});
    tap("Ann");
    type("Account Name", "Anna");
    ASSERT_TRUE(settings().page().goBack());
    EXPECT_EQ(accountNames(), Labels{"Anna"});
    EXPECT_TRUE(hasRow("Anna"));
}

TEST_F(BundleInSettings, KeepsTheBlanksAroundANameThatIsTyped) {
    open({"Ann"});
    tap("Ann");
    type("Account Name", "  Anna  ");
    ASSERT_TRUE(settings().page().goBack());
    ASSERT_TRUE(settings().page().tapBarButton());
    ASSERT_TRUE(settings().sheets().typeIntoAlert(0, " Ben "));
    chooseInAlert("Create");
    EXPECT_EQ(accountNames(), (Labels{"  Anna  ", " Ben "}));
}

TEST_F(BundleInSettings, StoresAClearedNameAsBlank) {
    open({"Ann"});
    tap("Ann");
    type("Account Name", "");
    settings().page().endEditing();
    EXPECT_EQ(accountNames(), Labels{"Blank"});
}

TEST_F(BundleInSettings, StoresANameWhenTheListIsDragged) {
    open({"Ann"});
    tap("Ann");
    type("Account Name", "Anna");
    ASSERT_TRUE(settings().page().dragList());
    EXPECT_EQ(accountNames(), Labels{"Anna"});
    EXPECT_FALSE(row("Account Name").editing);
}

TEST_F(BundleInSettings, CreatesAnAccountAndEditsIt) {
    open({"Ann"});
    ASSERT_TRUE(settings().page().tapBarButton());
    EXPECT_FALSE(settings().sheets().chooseAlertAction(1));
    ASSERT_TRUE(settings().sheets().typeIntoAlert(0, "Ben"));
    chooseInAlert("Create");
    EXPECT_FALSE(settings().screen().alert());
    EXPECT_EQ(accountNames(), (Labels{"Ann", "Ben"}));
    EXPECT_EQ(pathOf("Ben"), (platform::NSIndexPath{1, 1}));
    tap("Ben");
    tap("Keyboard");
    EXPECT_TRUE(stored(1, kRestrictKeyboard));
}

TEST_F(BundleInSettings, KeepsAskingForTheNameWhileAnotherProcessChangesTheAccounts) {
    open({"Ann"});
    ASSERT_TRUE(settings().page().tapBarButton());
    ASSERT_TRUE(settings().sheets().typeIntoAlert(0, "Ben"));
    changeElsewhere(documentOf({"Cleo", "Dan"}));
    EXPECT_TRUE(hasRow("Dan"));
    ASSERT_TRUE(settings().screen().alert());
    EXPECT_EQ(settings().screen().alert()->textFields().at(0)->text(), "Ben");
    chooseInAlert("Create");
    EXPECT_EQ(accountNames(), (Labels{"Cleo", "Dan", "Ben"}));
    EXPECT_EQ(pathOf("Ben"), (platform::NSIndexPath{1, 2}));
}

TEST_F(BundleInSettings, CreatesNothingWhenAnotherProcessRemovedTheList) {
    open({"Ann"});
    ASSERT_TRUE(settings().page().tapBarButton());
    ASSERT_TRUE(settings().sheets().typeIntoAlert(0, "Ben"));
    changeElsewhere({{kEnabled, true}});
    chooseInAlert("Create");
    EXPECT_EQ(document(), Dictionary({{kEnabled, true}}));
    EXPECT_FALSE(settings().screen().alert());
    EXPECT_FALSE(hasRow("Ben"));
}

TEST_F(BundleInSettings, DeletesAnAccountAndReturns) {
    open({"Ann", "Ben", "Cleo"}, 0.35);
    tap("Ben");
    clock.step(0.36);
    tap("Delete Account");
    chooseInAlert("Delete");
    clock.step(0.36);
    EXPECT_EQ(page().title(), "Wardlock");
    EXPECT_EQ(accountNames(), (Labels{"Ann", "Cleo"}));
    EXPECT_FALSE(hasRow("Ben"));
    tap("Ann");
    clock.step(0.36);
    tap("Siri");
    EXPECT_TRUE(stored(0, kRestrictSiri));
}

TEST_F(BundleInSettings, DeletingTheOnlyAccountBringsTheDefaultBack) {
    open({"Ann"});
    tap("Ann");
    tap("Delete Account");
    chooseInAlert("Delete");
    EXPECT_EQ(*document().find(kAccounts), *DefaultSettings().find(kAccounts));
    EXPECT_TRUE(hasRow("Default"));
}

TEST_F(BundleInSettings, SetsAndThenChangesThePasscode) {
    open({});
    tap("Passcode");
    EXPECT_EQ(keypadText(), "Enter New Passcode");
    press("1234");
    EXPECT_EQ(passcode(), "1234");
    endFade();
    EXPECT_FALSE(settings().screen().overlay());
    tap("Passcode");
    EXPECT_EQ(keypadText(), "Enter Current Passcode");
    press("1234");
    EXPECT_EQ(keypadText(), "Enter New Passcode");
    press("5678");
    endFade();
    EXPECT_EQ(passcode(), "5678");
}

TEST_F(BundleInSettings, KeepsTheKeypadAndItsDigitsWhileAnotherProcessChangesTheAccounts) {
    open({"Ann"});
    tap("Passcode");
    press("12");
    changeElsewhere(documentOf({"Cleo"}));
    EXPECT_EQ(keypadText(), "Enter New Passcode");
    press("34");
    EXPECT_EQ(passcode(), "1234");
    EXPECT_EQ(accountNames(), Labels{"Cleo"});
    endFade();
    EXPECT_FALSE(settings().screen().overlay());
}

TEST_F(BundleInSettings, AsksForThePasscodeThatAnotherProcessHasSet) {
    open({"Ann"});
    tap("Passcode");
    press("1234");
    endFade();
    tap("Passcode");
    platform::MutableDictionary changed(document());
    changed.set(kPasscode, "5678");
    changeElsewhere(changed.copy(), kPasscode);
    press("1234");
    EXPECT_EQ(keypadText(), "Enter Current Passcode");
    press("5678");
    EXPECT_EQ(keypadText(), "Enter New Passcode");
}

TEST_F(BundleInSettings, ClosesTheKeypadAtTheFourthWrongPasscode) {
    open({});
    tap("Passcode");
    press("1234");
    endFade();
    tap("Passcode");
    for (int entry = 0; entry < 4; ++entry)
        press("9999");
    endFade();
    EXPECT_FALSE(settings().screen().overlay());
    EXPECT_EQ(passcode(), "1234");
}

TEST_F(BundleInSettings, ClosesTheKeypadWhenTheApplicationResigns) {
    open({});
    tap("Passcode");
    press("12");
    settings().resignActive();
    endFade();
    EXPECT_FALSE(settings().screen().overlay());
    EXPECT_EQ(passcode(), "");
}

TEST_F(BundleInSettings, OpensTheMakersProfile) {
    open({});
    tap("@TavixCo");
    EXPECT_EQ(urls.opened, Labels{"twitter://user?screen_name=TavixCo"});
}

TEST_F(BundleInSettings, SendsAMailToSupport) {
    open({});
    tap("support@tavix.example");
    ASSERT_TRUE(settings().screen().composer());
    ASSERT_TRUE(settings().sheets().sendMail());
    ASSERT_EQ(mail.sent.size(), 1u);
    EXPECT_EQ(mail.sent[0].recipients, Labels{"support@tavix.example"});
    mail.finish({platform::MailOutcome::Kind::HandedOver, "The mail program has it."});
    EXPECT_FALSE(settings().screen().composer());
}

TEST_F(BundleInSettings, QuitsWithAnAlertOpenAndLeavesNothing) {
    open({"Ann"});
    tap("Ann");
    tap("Delete Account");
    const std::weak_ptr<platform::Object> account = page().controller().weak_from_this();
    const std::weak_ptr<platform::Object> alert = settings().screen().alert();
    quit();
    EXPECT_TRUE(account.expired());
    EXPECT_TRUE(alert.expired());
}

TEST_F(BundleInSettings, QuitsWithTheNameAlertOpenAndLeavesNothing) {
    open({"Ann"});
    ASSERT_TRUE(settings().page().tapBarButton());
    const std::weak_ptr<platform::Object> root = page().controller().weak_from_this();
    quit();
    EXPECT_TRUE(root.expired());
}

TEST_F(BundleInSettings, QuitsDuringAFadeAndLeavesNothing) {
    open({});
    tap("Passcode");
    const std::weak_ptr<platform::Object> keypad = settings().screen().overlay()->keypad;
    const std::weak_ptr<platform::Object> root = page().controller().weak_from_this();
    ASSERT_TRUE(settings().sheets().cancelKeypad());
    clock.step(0.1);
    quit();
    EXPECT_TRUE(root.expired());
    clock.step(1);
    EXPECT_TRUE(keypad.expired());
}

TEST_F(BundleInSettings, QuitsDuringAPopAndLeavesNothing) {
    open({"Ann"}, 0.35);
    tap("Ann");
    clock.step(0.36);
    const std::weak_ptr<platform::Object> account = page().controller().weak_from_this();
    ASSERT_TRUE(settings().page().goBack());
    clock.step(0.1);
    quit();
    clock.step(1);
    EXPECT_TRUE(account.expired());
}

} // namespace
} // namespace wardlock::test
