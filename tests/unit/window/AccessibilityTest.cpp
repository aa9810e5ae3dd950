#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowAccessibility : public WindowFixture {
protected:
    /// Whether the tree has the line, at any depth.
    bool describes(const std::string& line) {
        const std::string tree = scene().accessibilityTree();
        return ("\n" + tree).find("\n" + line) != std::string::npos ||
               tree.find(" " + line) != std::string::npos;
    }
    /// The whole description, behind an empty line.
    void expectTree(const std::string& tree) {
        EXPECT_TRUE(until([&] { return "\n" + scene().accessibilityTree() == tree; }))
            << scene().accessibilityTree();
    }
    void expectDescriptions(std::initializer_list<const char*> lines) {
        for (const char* line : lines)
            EXPECT_TRUE(until([&] { return describes(line); })) << line << "\n"
                                                                << scene().accessibilityTree();
    }
};

TEST_F(WindowAccessibility, DescribesTheFirstPageOfSettings) {
    open();
    expectTree(R"(
Grouping: 
  Grouping: 
    Heading: Settings
    Button: Search
    List: Settings
      Link: Wardlock
)");
}

TEST_F(WindowAccessibility, DescribesTheRootPage) {
    openWardlock();
    expectTree(R"(
Grouping: 
  Grouping: 
    Button: Back to Settings
    Heading: Wardlock
    Button: Search
    Button: Add
    List: Wardlock
      Heading: General
      CheckBox: Enabled on (1 of 7)
      Button: Passcode (2 of 7)
      StaticText: To set a passcode, simply tap on "Passcode" above. This will protect the settings app while a restricted account is enabled. Without a passcode, restricted users can easily access settings and disable all restrictions!
      Heading: Accounts
      Link: Default (3 of 7)
      StaticText: Use the '+' button at the top right of the screen to create a new account.
      Heading: Contact
      Button: @TavixCo (4 of 7)
      Button: support@tavix.example (5 of 7)
      Link: Change Log (6 of 7)
      Link: More From Tavix (7 of 7)
      StaticText: Wardlock is made by Tavix.
)");
}

TEST_F(WindowAccessibility, DescribesTheVisiblePartOfTheAccountPage) {
    openAccount();
    expectTree(R"(
Grouping: 
  Grouping: 
    Button: Back to Wardlock
    Heading: Default
    Button: Search
    List: Default
      CheckBox: Enabled off (1 of 20)
      EditableText: Account Name (2 of 20)
      Heading: Restricted Apps
      Link: Apps (3 of 20)
      Heading: Restrictions
      CheckBox: Disable Lockscreen Passcode on (4 of 20)
      StaticText: Will disable the lockscreen passcode during restricted use only. The settings application will remain locked with the passcode you set for wardlock
      Heading: Icons
      CheckBox: Hide Icons off (5 of 20)
      CheckBox: Editing on (6 of 20)
      CheckBox: Dragging on (7 of 20)
      CheckBox: Uninstall on (8 of 20)
      StaticText: "Hide Icons" will fully hide the icons for restricted applications, but will keep a blank spot to retain the grid map.
      Heading: System
      CheckBox: Power Down off (9 of 20)
      CheckBox: Siri off (10 of 20)
)");
}

TEST_F(WindowAccessibility, DescribesThePickerAndItsSwitches) {
    installApplication("com.apple.facetime", "FaceTime");
    installApplication("org.berry", "Berry");
    setAccounts({"Anna"});
    setInAccount(0, "kAppsRestricted", platform::Array{"com.apple.facetime"});
    openAccount();
    scene().tap("row:Apps");
    scene().item("page:Apps");
    expectTree(R"(
Grouping: 
  Grouping: 
    Button: Back to Anna
    Heading: Apps
    Button: Search
    List: Apps
      CheckBox: FaceTime on (1 of 2)
      CheckBox: Berry off (2 of 2)
)");
}

TEST_F(WindowAccessibility, DescribesAnAlertAndNotThePageBeneathIt) {
    openWardlock();
    scene().tap("add");
    scene().item("alert");
    expectTree(R"(
Grouping: 
  AlertMessage: New Account
    EditableText: New Account Name focused
    Button: Cancel
    Button: Create (Not available)
)");
}

TEST_F(WindowAccessibility, DescribesTheKeypadAndNotThePageBeneathIt) {
    openWardlock();
    scene().tap("row:Passcode");
    clock.step(0.4);
    scene().item("keypad:status");
    scene().type("12");
    expectTree(R"(
Grouping: 
  Dialog: Enter New Passcode focused
    StaticText: 2 of 4 digits entered
    Button: 1
    Button: 2
    Button: 3
    Button: 4
    Button: 5
    Button: 6
    Button: 7
    Button: 8
    Button: 9
    Button: 0
    Button: Delete
)");
}

TEST_F(WindowAccessibility, DescribesTheMailAndTheChangeLog) {
    openWardlock();
    scene().tap("row:support@tavix.example");
    expectDescriptions({"Dialog: New Message", "EditableText: To:", "EditableText: Subject:",
                        "EditableText: Message", "Button: Send"});
    EXPECT_FALSE(describes("Button: Passcode")) << "the page beneath";
    scene().press(Qt::Key_Escape);
    scene().expectGone("composer");
    scene().tap("row:Change Log");
    expectDescriptions({"Heading: Change Log", "StaticText: Wardlock 0.1.0"});
}

TEST_F(WindowAccessibility, DescribesEveryKindOfRow) {
    openFixtureBundle();
    expectDescriptions({"CheckBox: On off", "Link: Flavour", "EditableText: Nickname", "EditableText: PIN",
                        "CheckBox: Locked disabled off (Not available, 7 of 12)", "Button: Starred",
                        "StaticText: Version 1"});
}

TEST_F(WindowAccessibility, PerformsTheActionsOfAssistiveTechnology) {
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
