#include "tests/unit/window/WindowFixture.h"

#include <QInputMethodEvent>
#include <gtest/gtest.h>

namespace wardlock::test {

/// Text that an input method is still composing when the user ends the editing.
class WindowComposedText : public WindowFixture {
protected:
    using Names = std::vector<std::string>;

    static void compose(const QString& text) {
        QInputMethodEvent event(text, {});
        QCoreApplication::sendEvent(QGuiApplication::focusObject(), &event);
    }
    void composeName() {
        openAccount();
        scene().tap("field:Account Name");
        compose(QStringLiteral("木"));
        ASSERT_EQ(scene().text("field:Account Name", "preeditText"), "木");
    }
};

TEST_F(WindowComposedText, IsStoredWhenASwitchIsTapped) {
    composeName();
    scene().tap("switch:Enabled");
    EXPECT_EQ(accountNames(), Names{"Default木"});
}

TEST_F(WindowComposedText, IsStoredWhenARowIsTapped) {
    composeName();
    scene().tap("row:Apps");
    EXPECT_EQ(accountNames(), Names{"Default木"});
}

TEST_F(WindowComposedText, IsStoredWhenThePageIsLeft) {
    composeName();
    scene().tap("back");
    EXPECT_EQ(accountNames(), Names{"Default木"});
}

TEST_F(WindowComposedText, IsStoredWhenTheListIsDragged) {
    composeName();
    const QPointF place = scene().middleOf("row:Apps");
    scene().touchDrag(place, place - QPointF(0, 100));
    EXPECT_TRUE(until([&] { return accountNames() == Names{"Default木"}; }));
}

TEST_F(WindowComposedText, IsStoredWhenTheWindowIsClosed) {
    composeName();
    scene().press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return !window().isVisible(); }));
    EXPECT_EQ(accountNames(), Names{"Default木"});
}

TEST_F(WindowComposedText, IsAPartOfTheNameOfANewAccount) {
    openWardlock();
    scene().tap("add");
    scene().item("alert:field");
    scene().type("T");
    compose(QStringLiteral("木"));
    scene().tap("alert:Create");
    EXPECT_EQ(accountNames(), (Names{"Default", "T木"}));
}

TEST_F(WindowComposedText, IsAPartOfTheMail) {
    openWardlock();
    scene().tap("row:support@tavix.example");
    ASSERT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    scene().item("mail:body")->forceActiveFocus();
    compose(QStringLiteral("木"));
    scene().tap("mail:cancel");
    scene().tap("alert:Keep Writing");
    compose(QStringLiteral("林"));
    scene().tap("mail:send");
    ASSERT_EQ(mail.sent.size(), 1U);
    EXPECT_NE(mail.sent[0].body.find("木林"), std::string::npos) << mail.sent[0].body;
}

} // namespace wardlock::test
