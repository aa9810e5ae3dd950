#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

using WindowRootPage = WindowFixture;

TEST_F(WindowRootPage, IsReachedFromTheListOfBundles) {
    open();
    EXPECT_EQ(scene().text("title"), "Settings");
    EXPECT_EQ(scene().namesWith("row:"), (std::vector<std::string>{"Wardlock"}));
    scene().tap("row:Wardlock");
    scene().item("row:Passcode");
    EXPECT_EQ(scene().text("title"), "Wardlock");
}

TEST_F(WindowRootPage, ShowsItsRowsInOrder) {
    setAccounts({"Anna", "Ben"});
    openWardlock();
    EXPECT_EQ(scene().namesWith("row:"),
              (std::vector<std::string>{"Enabled", "Passcode", "Anna", "Ben", "@TavixCo",
                                        "support@tavix.example", "Change Log", "More From Tavix"}));
}

TEST_F(WindowRootPage, StoresItsSwitchAndAnnouncesIt) {
    openWardlock();
    const auto other = listen();
    EXPECT_TRUE(scene().item("switch:Enabled")->property("on").toBool());
    scene().tap("switch:Enabled");
    EXPECT_FALSE(scene().item("switch:Enabled")->property("on").toBool());
    EXPECT_FALSE(document().find(kEnabled)->boolean());
    EXPECT_EQ(other->readLine(), "kEnabled = 0; account (null); tweak 0");
}

TEST_F(WindowRootPage, FlipsItsSwitchByTouchAndKeyboard) {
    openWardlock();
    scene().touch("switch:Enabled");
    EXPECT_FALSE(document().find(kEnabled)->boolean());
    scene().item("switch:Enabled")->forceActiveFocus();
    scene().press(Qt::Key_Space);
    EXPECT_TRUE(document().find(kEnabled)->boolean());
}

TEST_F(WindowRootPage, ShowsNoAccountsOfAnEmptyList) {
    setAccounts({});
    openWardlock();
    EXPECT_EQ(scene().namesWith("row:"),
              (std::vector<std::string>{"Enabled", "Passcode", "@TavixCo", "support@tavix.example",
                                        "Change Log", "More From Tavix"}));
    EXPECT_TRUE(scene().showsText("ACCOUNTS"));
}

TEST_F(WindowRootPage, OpensTheProfile) {
    openWardlock();
    scene().tap("row:@TavixCo");
    EXPECT_EQ(urls.opened, (std::vector<std::string>{"twitter://user?screen_name=TavixCo"}));
}

} // namespace wardlock::test
