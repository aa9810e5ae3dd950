#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <QInputMethodEvent>
#include <gtest/gtest.h>

namespace wardlock::test {

class WindowAccountCreation : public WindowFixture {
protected:
    void ask() {
        openWardlock();
        scene().tap("add");
        scene().item("alert");
    }
    bool canCreate() { return scene().item("alert:Create")->isEnabled(); }
};

TEST_F(WindowAccountCreation, TypesANameAndCreates) {
    ask();
    const auto other = listen();
    EXPECT_FALSE(canCreate());
    scene().type("Anna");
    EXPECT_TRUE(canCreate());
    scene().tap("alert:Create");
    scene().item("row:Anna");
    scene().expectGone("alert");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default", "Anna"}));
    const auto line = other->readLine();
    ASSERT_TRUE(line);
    EXPECT_EQ(line->rfind("kAccounts = ", 0), 0U) << *line;
}

TEST_F(WindowAccountCreation, DisablesItsButtonForAnEmptyName) {
    ask();
    scene().type("A");
    scene().press(Qt::Key_Backspace);
    EXPECT_FALSE(canCreate());
    scene().tap("alert:Create");
    scene().press(Qt::Key_Return);
    scene().settle();
    EXPECT_TRUE(scene().shows("alert"));
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default"}));
}

TEST_F(WindowAccountCreation, AcceptsABlankAndReturn) {
    ask();
    scene().type(" ");
    scene().press(Qt::Key_Return);
    scene().expectGone("alert");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default", " "}));
}

TEST_F(WindowAccountCreation, AcceptsTheSameNameTwice) {
    openWardlock();
    for (int time = 0; time < 2; ++time) {
        scene().tap("add");
        scene().item("alert:field");
        scene().type("Twin");
        scene().tap("alert:Create");
        scene().expectGone("alert");
    }
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default", "Twin", "Twin"}));
    EXPECT_TRUE(until([&] {
        const auto rows = scene().namesWith("row:");
        return std::count(rows.begin(), rows.end(), "Twin") == 2;
    }));
}

TEST_F(WindowAccountCreation, IsCancelledByButtonAndEscape) {
    ask();
    scene().type("Anna");
    scene().tap("alert:Cancel");
    scene().expectGone("alert");
    scene().tap("add");
    scene().item("alert:field");
    scene().type("Ben");
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default"}));
    EXPECT_EQ(scene().text("title"), "Wardlock");
}

TEST_F(WindowAccountCreation, CoversThePage) {
    openWardlock();
    const QPointF row = scene().middleOf("switch:Enabled");
    scene().tap("add");
    scene().item("alert");
    scene().tapAt(row);
    EXPECT_TRUE(document().find(kEnabled)->boolean());
}

TEST_F(WindowAccountCreation, KeepsTypingWhileAnotherProcessChangesTheAccounts) {
    ask();
    scene().type("An");
    setAccounts({"Cleo"});
    announce();
    scene().item("row:Cleo");
    scene().type("na");
    scene().press(Qt::Key_Return);
    scene().item("row:Anna");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Cleo", "Anna"}));
}

TEST_F(WindowAccountCreation, AcceptsANameFromAnInputMethodOnceItIsCommitted) {
    ask();
    const QString name = QStringLiteral("\u5F20\u4E09 \u0639\u0645\u0631 \U0001F467");
    QInputMethodEvent composing(QStringLiteral("zhang"), {});
    QGuiApplication::sendEvent(window().focusObject(), &composing);
    EXPECT_FALSE(canCreate());
    QInputMethodEvent committed;
    committed.setCommitString(name);
    QGuiApplication::sendEvent(window().focusObject(), &committed);
    EXPECT_TRUE(canCreate());
    scene().tap("alert:Create");
    scene().expectGone("alert");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default", name.toStdString()}));
}

TEST_F(WindowAccountCreation, AcceptsANameOfAnyLength) {
    ask();
    scene().type(QString(600, QLatin1Char('x')));
    scene().press(Qt::Key_Return);
    scene().expectGone("alert");
    EXPECT_EQ(accountNames(), (std::vector<std::string>{"Default", std::string(600, 'x')}));
    scene().tap("row:" + QString(600, QLatin1Char('x')));
    scene().item("field:Account Name");
}

TEST_F(WindowAccountCreation, KeepsTheKeyboardWithinTheAlert) {
    ask();
    scene().type("Anna");
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(scene().item("alert:Cancel")->hasActiveFocus());
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(scene().item("alert:Create")->hasActiveFocus());
    scene().press(Qt::Key_Space);
    scene().item("row:Anna");
}

} // namespace wardlock::test
