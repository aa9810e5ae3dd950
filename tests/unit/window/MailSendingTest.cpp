#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

/// The mail sheet from the tap on "Send" to the outcome of the mail.
class WindowMailSending : public WindowFixture {
protected:
    void SetUp() override {
        writeFile("/tmp/dpkgl.log", "package one\npackage two");
        openWardlock();
        scene().reveal("row:support@tavix.example");
        scene().tap("row:support@tavix.example");
        ASSERT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    }
    void write(const QString& text) {
        scene().item("mail:body")->forceActiveFocus();
        scene().press(Qt::Key_End, Qt::ControlModifier);
        scene().type(text);
    }
    void finish(const platform::MailOutcome& outcome) {
        host().settings().application().run([&] { mail.finish(outcome); });
    }
};

TEST_F(WindowMailSending, TakesNoChangesThatWouldBeLost) {
    write("!");
    scene().tap("mail:send");
    for (const char* name : {"mail:To:", "mail:Subject:", "mail:body"}) {
        const std::string before = scene().text(name);
        scene().item(name)->forceActiveFocus();
        scene().type("lost");
        EXPECT_EQ(scene().text(name), before) << name;
    }
    EXPECT_FALSE(scene().item("mail:remove:dpkgl.log")->isEnabled());
    finish({platform::MailOutcome::Kind::Failed, "The mail program could not be started."});
    write("?");
    EXPECT_TRUE(scene().text("mail:body").ends_with("!?"));
    EXPECT_TRUE(scene().item("mail:remove:dpkgl.log")->isEnabled());
}

TEST_F(WindowMailSending, IsNotCancelledByAKey) {
    write("!");
    scene().tap("mail:send");
    scene().press(Qt::Key_Escape);
    // A question would take the keyboard focus.
    EXPECT_TRUE(scene().item("mail:body")->hasActiveFocus());
    finish({platform::MailOutcome::Kind::HandedOver, "The mail program has the mail."});
    scene().expectGone("composer");
}

TEST_F(WindowMailSending, KeepsTheWindowOpenUntilItsOutcome) {
    scene().tap("mail:send");
    scene().press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(window().isVisible());
    EXPECT_TRUE(scene().shows("composer"));
    finish({platform::MailOutcome::Kind::HandedOver, "The mail program has the mail."});
    scene().expectGone("composer");
    scene().press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return !window().isVisible(); }));
}

} // namespace wardlock::test
