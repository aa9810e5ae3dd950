#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

#include <filesystem>

namespace wardlock::test {

/// A device on which the account Anna is enabled and the passcode is 1234.
class WindowGuard : public WindowFixture {
protected:
    WindowGuard() {
        keepGuard();
        setAccounts({"Anna"});
        setInAccount(0, kAccountEnabled, true);
        platform::MutableDictionary document(this->document());
        document.set(kPasscode, "1234");
        writeDocument(document.copy());
    }

    /// Opens the window and, with the passcode, Wardlock's first page.
    void enter() {
        open();
        scene().tap("row:Wardlock");
        clock.step(fade);
        scene().type("1234");
        clock.step(fade);
        scene().expectGone("keypad:status");
        scene().item("row:Passcode");
    }
    void expectAsked() {
        clock.step(fade);
        EXPECT_EQ(scene().text("keypad:status"), "Enter Passcode");
        EXPECT_FALSE(scene().shows("row:Passcode"));
    }
    /// Expects the list of bundles, whose entry asks.
    void expectLocked() {
        clock.step(fade);
        scene().expectGone("keypad:status");
        scene().expectGone("row:Passcode");
        EXPECT_EQ(scene().text("title"), "Settings");
        scene().tap("row:Wardlock");
        expectAsked();
    }

    static constexpr double fade = 0.4;
    static constexpr double hour = 3600;
};

TEST_F(WindowGuard, AsksAtATapOnTheEntry) {
    open();
    scene().tap("row:Wardlock");
    expectAsked();
    for (const char* key : {"key:1", "key:2", "key:3", "key:4"})
        scene().tap(key);
    clock.step(fade);
    scene().expectGone("keypad:status");
    scene().item("row:Passcode");
    EXPECT_EQ(scene().text("title"), "Wardlock");
}

TEST_F(WindowGuard, AsksAtATouchOfTheEntry) {
    open();
    scene().touch("row:Wardlock");
    expectAsked();
}

TEST_F(WindowGuard, AsksWhenTheEntryIsOpenedByTheKeyboard) {
    open();
    scene().item("row:Wardlock")->forceActiveFocus();
    scene().press(Qt::Key_Return);
    expectAsked();
    scene().press(Qt::Key_Escape);
    expectLocked();
}

TEST_F(WindowGuard, AsksWhenTheEntryIsPressedByAssistiveTechnology) {
    open();
    auto* actions = scene().accessible("row:Wardlock")->actionInterface();
    ASSERT_TRUE(actions);
    actions->doAction(QAccessibleActionInterface::pressAction());
    expectAsked();
}

TEST_F(WindowGuard, AsksBeforeItLeadsToAFoundRow) {
    open();
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().item("search");
    scene().type("anna siri");
    scene().tap("row:Siri");
    expectAsked();
    scene().type("1234");
    clock.step(fade);
    EXPECT_TRUE(until([&] { return scene().text("title") == "Anna"; }));
}

TEST_F(WindowGuard, StaysOutsideAfterTheFourthWrongEntryAndAfterCancel) {
    open();
    scene().tap("row:Wardlock");
    clock.step(fade);
    for (int attempt = 0; attempt < 4; ++attempt)
        scene().type("9999");
    expectLocked();
    scene().tap("keypad:cancel");
    expectLocked();
}

TEST_F(WindowGuard, LocksWhenTheApplicationLosesTheFocus) {
    enter();
    scene().tap("row:Anna");
    scene().tap("row:Apps");
    scene().item("page:Apps");
    emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    expectLocked();
}

TEST_F(WindowGuard, StoresWhatWasBeingTypedWhenItLocks) {
    enter();
    scene().tap("row:Anna");
    scene().tap("field:Account Name");
    scene().type("bel");
    emit qGuiApp->applicationStateChanged(Qt::ApplicationInactive);
    EXPECT_EQ(accountNames(), std::vector<std::string>{"Annabel"});
    expectLocked();
}

TEST_F(WindowGuard, StaysOpenWhileAnotherWindowOfItsOwnHasTheFocus) {
    enter();
    QWindow popup;
    popup.setFlag(Qt::Popup);
    popup.show();
    popup.requestActivate();
    ASSERT_TRUE(until([&] { return popup.isActive(); }));
    scene().settle();
    EXPECT_TRUE(scene().shows("row:Passcode"));
}

TEST_F(WindowGuard, LocksAfterAnHourWithoutAnInput) {
    enter();
    clock.step(hour);
    expectLocked();
}

TEST_F(WindowGuard, CountsKeysWheelAndPointerAsInputs) {
    enter();
    for (const auto& act : std::vector<std::function<void()>>{[&] { scene().press(Qt::Key_Tab); },
                                                              [&] { scene().wheel("list", -15); },
                                                              [&] {
                                                                  QTest::mouseMove(&window(), {20, 30});
                                                              }}) {
        clock.step(hour - 1);
        act();
        scene().settle();
    }
    clock.step(hour - 1);
    scene().settle();
    EXPECT_TRUE(scene().shows("row:Passcode"));
    clock.step(1);
    expectLocked();
}

TEST_F(WindowGuard, TakesNoPicturesOfProtectedPages) {
    const std::string pictures = folder() / "pictures";
    ProcessSetup setup;
    setup.environment = {{"WARDLOCK_DEVICE_ROOT", root()}};
    const auto result =
        runProcess(programFolder() + "/wardlock-settings", {"--light", "--screenshots", pictures}, setup);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("cannot take pictures of settings that a passcode protects"),
              std::string::npos)
        << result.errors;
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(pictures))
        names.push_back(entry.path().filename());
    std::ranges::sort(names);
    EXPECT_EQ(names, (std::vector<std::string>{"1-first-page-light-wide.png", "1-first-page-light.png"}));
}

} // namespace wardlock::test
