#include "tests/app/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowAccessibility : public WindowFixture {
protected:
    /// Whether the tree has the line, at any depth.
    bool tells(const std::string& line) {
        const std::string tree = scene().accessibilityTree();
        return ("\n" + tree).find("\n" + line) != std::string::npos ||
               tree.find(" " + line) != std::string::npos;
    }
    void expectTold(std::initializer_list<const char*> lines) {
        for (const char* line : lines)
            EXPECT_TRUE(until([&] { return tells(line); })) << line << "\n" << scene().accessibilityTree();
    }
};

TEST_F(WindowAccessibility, TellsTheRootPage) {
    openWardlock();
    expectTold({"Heading: Wardlock", "Button: Back to Settings", "Button: Add", "Heading: General",
                "CheckBox: Enabled on", "Button: Passcode", "Heading: Accounts", "Link: Default",
                "Link: Change Log"});
    EXPECT_FALSE(tells("Link: Wardlock"));
}

TEST_F(WindowAccessibility, TellsTheAccountPage) {
    openAccount();
    expectTold({"CheckBox: Enabled off", "EditableText: Account Name", "Link: Apps",
                "CheckBox: Disable Lockscreen Passcode on", "CheckBox: Hide Icons off"});
}

TEST_F(WindowAccessibility, TellsThePickerAndItsSwitches) {
    installApplication("com.apple.facetime", "FaceTime");
    openAccount();
    scene().tap("row:Apps");
    scene().item("page:Apps");
    expectTold({"Heading: Apps", "CheckBox: FaceTime on"});
}

TEST_F(WindowAccessibility, TellsAnAlert) {
    openWardlock();
    scene().tap("add");
    scene().item("alert");
    expectTold({"AlertMessage: New Account", "EditableText: New Account Name", "Button: Cancel",
                "Button: Create (Not available)"});
    EXPECT_FALSE(tells("Button: Passcode")) << "the page beneath";
    EXPECT_FALSE(tells("Button: Add")) << "its bar";
}

TEST_F(WindowAccessibility, TellsTheKeypad) {
    openWardlock();
    scene().tap("row:Passcode");
    clock.step(0.4);
    scene().item("keypad:status");
    scene().type("12");
    expectTold(
        {"Dialog: Enter New Passcode", "StaticText: 2 of 4 digits entered", "Button: 7", "Button: Delete"});
    EXPECT_FALSE(tells("Button: Passcode")) << "the page beneath";
}

TEST_F(WindowAccessibility, TellsTheMailAndTheChangeLog) {
    openWardlock();
    scene().tap("row:support@tavix.example");
    expectTold({"Dialog: New Message", "EditableText: To:", "EditableText: Subject:", "EditableText: Message",
                "Button: Send"});
    EXPECT_FALSE(tells("Button: Passcode")) << "the page beneath";
    scene().press(Qt::Key_Escape);
    scene().expectGone("composer");
    scene().tap("row:Change Log");
    expectTold({"Heading: Change Log", "StaticText: Wardlock 0.1.0"});
}

TEST_F(WindowAccessibility, TellsEveryKindOfRow) {
    openFixtureBundle();
    expectTold({"CheckBox: On off", "Link: Flavour", "EditableText: Nickname", "EditableText: PIN",
                "CheckBox: Locked disabled off (Not available)", "Button: Starred", "StaticText: Version 1"});
}

TEST_F(WindowAccessibility, DoesWhatAssistiveTechnologyAsks) {
    openWardlock();
    scene()
        .accessible("switch:Enabled")
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(until([&] { return !scene().item("switch:Enabled")->property("on").toBool(); }));
    scene()
        .accessible("row:Change Log")
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    scene().item("page:Change Log");
}

} // namespace wardlock::test
