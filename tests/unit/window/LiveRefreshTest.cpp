#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

using WindowLiveRefresh = WindowFixture;

TEST_F(WindowLiveRefresh, ShowsTheAccountsThatAnotherProcessCreated) {
    openWardlock();
    setAccounts({"Anna", "Ben"});
    announce();
    EXPECT_TRUE(until([&] { return scene().shows("row:Ben"); }));
    scene().expectGone("row:Default");
}

TEST_F(WindowLiveRefresh, ReadsTheRowsOfAnAccountAgain) {
    openAccount();
    EXPECT_TRUE(scene().item("switch:Editing")->property("on").toBool());
    setInAccount(0, kRestrictEdit, false);
    announce();
    EXPECT_TRUE(until([&] { return !scene().item("switch:Editing")->property("on").toBool(); }));
}

TEST_F(WindowLiveRefresh, LeavesATextThatIsBeingTyped) {
    openAccount();
    scene().tap("field:Account Name");
    scene().type("X");
    setInAccount(0, kAccountName, "Elsewhere");
    setInAccount(0, kRestrictEdit, false);
    announce();
    EXPECT_TRUE(until([&] { return !scene().item("switch:Editing")->property("on").toBool(); }));
    EXPECT_EQ(scene().text("field:Account Name"), "DefaultX");
    EXPECT_TRUE(scene().item("field:Account Name")->hasActiveFocus());
    scene().press(Qt::Key_Return);
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"DefaultX"}));
}

TEST_F(WindowLiveRefresh, GoesBackFromAnAccountThatAnotherProcessRemoved) {
    setAccounts({"Anna", "Ben"});
    openWardlock();
    scene().tap("row:Ben");
    scene().item("switch:Editing");
    setAccounts({"Anna"});
    announce();
    EXPECT_TRUE(until([&] { return scene().shows("row:Anna"); }));
    EXPECT_TRUE(scene().showsText("Another program removed the account “Ben”."));
    scene().tap("notice:ok");
    scene().expectGone("notice");
}

TEST_F(WindowLiveRefresh, GoesBackWhenATapFindsTheAccountRemoved) {
    setAccounts({"Anna", "Ben"});
    openWardlock();
    scene().tap("row:Ben");
    scene().item("switch:Editing");
    setAccounts({"Anna"});
    const auto before = document();
    scene().tap("switch:Editing");
    EXPECT_TRUE(until([&] { return scene().shows("row:Anna"); }));
    EXPECT_TRUE(scene().showsText("Another program removed the account “Ben”."));
    EXPECT_EQ(document(), before);
}

TEST_F(WindowLiveRefresh, KeepsTheScrollPositionOfTheList) {
    openAccount();
    auto* list = scene().item("list");
    list->setProperty("contentY", 300);
    scene().settle();
    setInAccount(0, kRestrictSiri, true);
    announce();
    EXPECT_TRUE(until([&] { return scene().item("switch:Siri")->property("on").toBool(); }));
    EXPECT_EQ(list->property("contentY").toDouble(), 300);
}

} // namespace wardlock::test
