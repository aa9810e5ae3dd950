#include "settings/Keys.h"
#include "tests/unit/window/AccountRows.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowAccountPage : public WindowFixture {
protected:
    bool accountBool(std::size_t index, std::string_view key) const { return account(index, key).boolean(); }
    QQuickItem* nameField() { return scene().item("field:Account Name"); }
};

TEST_F(WindowAccountPage, ShowsEveryRowOfThePage) {
    openAccount();
    EXPECT_EQ(scene().text("title"), "Default");
    for (const char* row : accountRows)
        EXPECT_TRUE(scene().reveal(row)) << row;
}

TEST_F(WindowAccountPage, SwitchesARestrictionOfTheTappedAccount) {
    setAccounts({"Anna", "Ben"});
    openAccount(1);
    const auto other = listen();
    scene().reveal("switch:Siri");
    scene().tap("switch:Siri");
    EXPECT_TRUE(scene().item("switch:Siri")->property("on").toBool());
    EXPECT_TRUE(accountBool(1, kRestrictSiri));
    EXPECT_FALSE(accountBool(0, kRestrictSiri));
    EXPECT_EQ(other->readLine(), "kRestrictSiri = 1; account (null); tweak 0");
}

TEST_F(WindowAccountPage, EnablesOneAccountAndDisablesTheOther) {
    setAccounts({"Anna", "Ben"});
    setInAccount(0, kAccountEnabled, true);
    openAccount(1);
    const auto other = listen();
    scene().tap("switch:Enabled");
    EXPECT_FALSE(accountBool(0, kAccountEnabled));
    EXPECT_TRUE(accountBool(1, kAccountEnabled));
    EXPECT_EQ(other->readLine(), "kAccountEnabled = 1; account Ben; tweak 1");
}

TEST_F(WindowAccountPage, RenamesTheAccountOnReturn) {
    openAccount();
    const auto other = listen();
    scene().tap("field:Account Name");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().type("Clara");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default"}));
    scene().press(Qt::Key_Return);
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Clara"}));
    EXPECT_EQ(other->readLine(), "kAccountName = Clara; account (null); tweak 0");
    EXPECT_FALSE(nameField()->hasActiveFocus());
}

TEST_F(WindowAccountPage, StoresTheNameWhenThePageIsLeft) {
    openAccount();
    scene().tap("field:Account Name");
    scene().type("X");
    scene().tap("back");
    scene().item("row:DefaultX");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"DefaultX"}));
}

TEST_F(WindowAccountPage, StoresBlankForAnEmptyName) {
    openAccount();
    scene().tap("field:Account Name");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().press(Qt::Key_Backspace);
    scene().press(Qt::Key_Return);
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Blank"}));
    scene().press(Qt::Key_Escape);
    scene().item("row:Blank");
}

TEST_F(WindowAccountPage, ClosesTheKeyboardWhenTheListIsDragged) {
    openAccount();
    scene().tap("field:Account Name");
    scene().type("X");
    EXPECT_TRUE(nameField()->hasActiveFocus());
    scene().touchDrag({195, 600}, {195, 300});
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"DefaultX"}));
    EXPECT_TRUE(
        until([&] { return !scene().shows("field:Account Name") || !nameField()->hasActiveFocus(); }));
}

TEST_F(WindowAccountPage, AsksBeforeItDeletes) {
    setAccounts({"Anna", "Ben"});
    openAccount(0);
    scene().reveal("row:Delete Account");
    scene().tap("row:Delete Account");
    scene().item("alert");
    EXPECT_TRUE(scene().showsText("Are you sure you want to delete this account?"));
    scene().tap("alert:Cancel");
    scene().expectGone("alert");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Anna", "Ben"}));
    EXPECT_EQ(scene().text("title"), "Anna");
}

TEST_F(WindowAccountPage, DeletesAndGoesBackToTheShorterList) {
    setAccounts({"Anna", "Ben"});
    openAccount(0);
    const auto other = listen();
    scene().reveal("row:Delete Account");
    scene().tap("row:Delete Account");
    scene().tap("alert:Delete");
    scene().item("row:Ben");
    scene().expectGone("row:Anna");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Ben"}));
    const auto line = other->readLine();
    ASSERT_TRUE(line);
    EXPECT_EQ(line->rfind("kAccounts = ", 0), 0U) << *line;
}

TEST_F(WindowAccountPage, BringsTheDefaultAccountBackAfterTheLast) {
    setAccounts({"Anna"});
    openAccount(0);
    scene().reveal("row:Delete Account");
    scene().tap("row:Delete Account");
    scene().tap("alert:Delete");
    scene().item("row:Default");
}

} // namespace wardlock::test
