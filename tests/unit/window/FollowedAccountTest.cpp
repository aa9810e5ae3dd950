#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

/// The window while another process changes the account that it shows.
class WindowFollowedAccount : public WindowFixture {
protected:
    static std::string identifier(int number) { return "com.example.app" + std::to_string(100 + number); }
    void openLongPicker() {
        for (int number = 0; number < 40; ++number)
            installApplication(identifier(number), "Application " + std::to_string(100 + number));
        openAccount();
        setInAccount(0, kAppsRestricted, platform::Array());
        announce();
        scene().tap("row:Apps");
        scene().item("cell:" + QString::fromStdString(identifier(0)));
    }
    bool isOn(int number) {
        auto* toggle = scene().find("switch:" + QString::fromStdString(identifier(number)));
        return toggle && toggle->property("on").toBool();
    }
};

TEST_F(WindowFollowedAccount, GivesTheTitleTheNewName) {
    openAccount();
    setInAccount(0, kAccountName, "Thomas");
    announce();
    EXPECT_TRUE(until([&] { return scene().text("title") == "Thomas"; }));
    scene().tap("row:Apps");
    scene().item("page:Apps");
    setInAccount(0, kAccountName, "Tim");
    announce();
    EXPECT_TRUE(until([&] { return scene().accessible("back")->text(QAccessible::Name) == "Back to Tim"; }));
}

TEST_F(WindowFollowedAccount, KeepsThePickersScrollPosition) {
    openLongPicker();
    auto* list = scene().item("list");
    list->setProperty("contentY", 500);
    scene().settle();
    // In the rows that stay in sight, one more restricted application before them.
    setInAccount(0, kAppsRestricted, platform::Array{identifier(39)});
    announce();
    EXPECT_EQ(list->property("contentY").toDouble(), 500);
    scene().press(Qt::Key_Home);
    EXPECT_TRUE(until([&] { return isOn(39); }));
}

TEST_F(WindowFollowedAccount, ShowsASwitchOfThePickerAsItIsStored) {
    openLongPicker();
    EXPECT_FALSE(isOn(0));
    setInAccount(0, kAppsRestricted, platform::Array{identifier(0)});
    announce();
    EXPECT_TRUE(until([&] { return isOn(0); }));
    scene().tap("switch:" + QString::fromStdString(identifier(1)));
    EXPECT_EQ(account(0, kAppsRestricted), platform::Value(platform::Array{identifier(0), identifier(1)}));
}

TEST_F(WindowFollowedAccount, KeepsTheSearchOfThePicker) {
    openLongPicker();
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().type("102");
    EXPECT_TRUE(until([&] { return scene().namesWith("cell:").size() == 1; }));
    setInAccount(0, kAppsRestricted, platform::Array{identifier(2), identifier(3)});
    announce();
    EXPECT_TRUE(until([&] { return isOn(2); }));
    EXPECT_EQ(scene().namesWith("cell:"), std::vector<std::string>{identifier(2)});
}

} // namespace wardlock::test
