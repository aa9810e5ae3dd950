#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

/// Sheets that have to be left before anything else in the window can be reached.
class WindowModals : public WindowFixture {
protected:
    bool isModal(const QString& inside) {
        for (auto* element = scene().accessible(inside); element; element = element->parent())
            if (element->state().modal)
                return true;
        return false;
    }
    bool describes(const std::string& text) {
        return scene().accessibilityTree().find(text) != std::string::npos;
    }
    /// The names of what the key Tab reaches, up to the first again.
    QStringList tabbed() {
        QStringList names;
        for (;;) {
            scene().press(Qt::Key_Tab);
            const auto* focused = window().activeFocusItem();
            const QString name = focused ? focused->objectName() : QString();
            if (names.contains(name))
                return names;
            names.append(name);
        }
    }
    /// Expects Tab to go round in these, wherever it begins.
    void expectTabbed(QStringList names) {
        QStringList reached = tabbed();
        reached.sort();
        names.sort();
        EXPECT_EQ(reached, names) << reached.join(QLatin1Char(' ')).toStdString();
    }
    void openMail() {
        openWardlock();
        scene().tap("row:support@tavix.example");
        ASSERT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    }
};

TEST_F(WindowModals, AreTheKeypadAlertsAndSheets) {
    openWardlock();
    EXPECT_FALSE(isModal("row:Passcode"));
    scene().tap("add");
    EXPECT_TRUE(isModal("alert:Cancel"));
    scene().tap("alert:Cancel");
    scene().expectGone("alert");
    scene().press(Qt::Key_F1);
    EXPECT_TRUE(isModal("sheet:done"));
    scene().press(Qt::Key_Escape);
    scene().expectGone("guide");
    scene().tap("row:Passcode");
    clock.step(0.4);
    EXPECT_TRUE(isModal("keypad:cancel"));
}

TEST_F(WindowModals, ConfineTheTabKey) {
    openWardlock();
    scene().tap("add");
    scene().item("alert");
    scene().type("Tom");
    expectTabbed({"", "alert:Cancel", "alert:Create"});
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    scene().press(Qt::Key_F1);
    scene().item("guide");
    expectTabbed({"sheet:done"});
}

TEST_F(WindowModals, ConfineTheTabKeyToTheMailSheet) {
    writeFile("/tmp/dpkgl.log", "package one");
    openMail();
    scene().item("mail:To:")->forceActiveFocus();
    const std::string body = scene().text("mail:body");
    expectTabbed({"mail:cancel", "mail:send", "mail:To:", "mail:Subject:", "mail:body",
                  "mail:attachment:dpkgl.log", "mail:remove:dpkgl.log"});
    EXPECT_EQ(scene().text("mail:body"), body);
    scene().item("mail:body")->forceActiveFocus();
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(window().activeFocusItem()->objectName(), QStringLiteral("mail:Subject:"));
}

TEST_F(WindowModals, CoverTheSheetBeneathThem) {
    openMail();
    scene().tap("mail:body");
    scene().type("Hello");
    EXPECT_TRUE(describes("EditableText: Message"));
    scene().press(Qt::Key_Escape);
    scene().item("alert:Keep Writing");
    EXPECT_TRUE(describes("AlertMessage: Discard this message?"));
    EXPECT_FALSE(describes("EditableText: Message"));
    expectTabbed({"alert:Keep Writing", "alert:Discard"});
    scene().tap("alert:Keep Writing");
    scene().expectGone("alert");
    EXPECT_TRUE(describes("EditableText: Message"));
    EXPECT_EQ(window().activeFocusItem()->objectName(), QStringLiteral("mail:body"));
}

} // namespace wardlock::test
