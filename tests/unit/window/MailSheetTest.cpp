#include "tests/unit/window/WindowFixture.h"

#include <QTest>
#include <gtest/gtest.h>

namespace wardlock::test {

/// The mail sheet, whose text must not be lost.
class WindowMailSheet : public WindowFixture {
protected:
    void openSheet(QSize size = {390, 844}) {
        writeFile("/tmp/dpkgl.log", attached);
        open(0, size);
        scene().tap("row:Wardlock");
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
    std::string attached = "package one\npackage two";
    double scrolled() { return scene().item("mail:scroll")->property("contentY").toDouble(); }
    bool caretIsInSight() {
        const auto* body = scene().item("mail:body");
        const auto* scroll = scene().item("mail:scroll");
        const QRectF caret = body->mapRectToItem(scroll, body->property("cursorRectangle").toRectF());
        return caret.top() >= 0 && caret.bottom() <= scroll->height();
    }
};

TEST_F(WindowMailSheet, AsksBeforeItDiscardsWhatWasWritten) {
    openSheet();
    write("!");
    scene().tap("mail:cancel");
    scene().item("alert:Keep Writing");
    scene().tap("alert:Keep Writing");
    scene().expectGone("alert");
    EXPECT_EQ(scene().text("mail:body").back(), '!');
    scene().tap("mail:cancel");
    scene().tap("alert:Discard");
    scene().expectGone("composer");
    EXPECT_TRUE(mail.sent.empty());
}

TEST_F(WindowMailSheet, AsksByTheEscapeKeyToo) {
    openSheet();
    write("!");
    scene().press(Qt::Key_Escape);
    scene().item("alert:Discard");
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    EXPECT_TRUE(scene().shows("composer"));
}

TEST_F(WindowMailSheet, DisappearsAtOnceWhenNothingWasWritten) {
    openSheet();
    scene().tap("mail:body");
    scene().tap("mail:cancel");
    scene().expectGone("composer");
}

TEST_F(WindowMailSheet, KeepsTheWindowOpenUntilItsTextIsDiscarded) {
    openSheet();
    write("!");
    scene().press(Qt::Key_Q, Qt::ControlModifier);
    scene().item("alert:Discard");
    EXPECT_TRUE(window().isVisible());
    scene().tap("alert:Discard");
    scene().expectGone("composer");
    scene().press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return !window().isVisible(); }));
}

TEST_F(WindowMailSheet, FollowsTheCaretInALongText) {
    openSheet({390, 420});
    write({});
    for (int i = 0; i < 30; ++i)
        scene().press(Qt::Key_Return);
    scene().type("end");
    EXPECT_TRUE(until([&] { return scrolled() > 0 && caretIsInSight(); }));
    scene().press(Qt::Key_Home, Qt::ControlModifier);
    EXPECT_TRUE(until([&] { return caretIsInSight(); }));
}

TEST_F(WindowMailSheet, LetsTheTabKeyLeadOnFromItsText) {
    openSheet();
    const std::string text = scene().text("mail:body");
    scene().item("mail:body")->forceActiveFocus();
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(scene().item("mail:attachment:dpkgl.log")->hasActiveFocus());
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(scene().item("mail:body")->hasActiveFocus());
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(scene().item("mail:Subject:")->hasActiveFocus());
    EXPECT_EQ(scene().text("mail:body"), text);
}

TEST_F(WindowMailSheet, ScrollsItsAttachmentsOutFromBeneathANotice) {
    openSheet({390, 420});
    scene().tap("mail:send");
    finish({platform::MailOutcome::Kind::Failed, "The mail program could not be started."});
    const auto* notice = scene().item("notice");
    auto* scroll = scene().item("mail:scroll");
    const auto* row = scene().item("mail:attachment:dpkgl.log");
    const double end = scroll->property("contentHeight").toDouble() +
                       scroll->property("bottomMargin").toDouble() - scroll->height();
    scroll->setProperty("contentY", end);
    EXPECT_LE(row->mapToScene({0, row->height()}).y(), notice->mapToScene({0, 0}).y());
}

TEST_F(WindowMailSheet, StaysOpenWhenTheMailCouldNotBeSent) {
    openSheet();
    write("!");
    scene().tap("mail:send");
    finish({platform::MailOutcome::Kind::Failed, "The mail program could not be started."});
    EXPECT_TRUE(until([&] { return scene().showsText("The mail program could not be started."); }));
    EXPECT_EQ(scene().text("mail:body").back(), '!');
    EXPECT_EQ(scene().text("mail:send"), "Send");
    scene().tap("mail:send");
    ASSERT_EQ(mail.sent.size(), 2U);
    EXPECT_EQ(mail.sent[1].body.back(), '!');
    finish({platform::MailOutcome::Kind::HandedOver, "The mail program has the mail."});
    scene().expectGone("composer");
}

TEST_F(WindowMailSheet, TakesAClickBelowItsTextAsOneInTheText) {
    openSheet({390, 1200});
    auto* body = scene().item("mail:body");
    const QPointF below = body->mapToScene({40, body->height() - 8});
    ASSERT_GT(body->height(), body->implicitHeight() + 100);
    scene().tapAt(below);
    EXPECT_TRUE(body->hasActiveFocus());
    scene().type("!");
    EXPECT_EQ(scene().text("mail:body").back(), '!');
}

TEST_F(WindowMailSheet, ShowsAnAttachmentBeforeItIsSent) {
    openSheet();
    scene().item("mail:attachment:dpkgl.log")->forceActiveFocus();
    scene().press(Qt::Key_Return);
    scene().item("attachment");
    EXPECT_EQ(scene().text("sheet:title"), "dpkgl.log");
    EXPECT_EQ(scene().text("sheet:words"), "package one\npackage two");
    scene().press(Qt::Key_Escape);
    scene().expectGone("attachment");
    EXPECT_TRUE(scene().shows("composer"));
    const auto* row = scene().item("mail:attachment:dpkgl.log");
    scene().tapAt(row->mapToScene({40, row->height() / 2}));
    scene().item("attachment");
}

TEST_F(WindowMailSheet, ShowsWhatTheKeyboardReaches) {
    openSheet({390, 420});
    write({});
    for (int i = 0; i < 30; ++i)
        scene().press(Qt::Key_Return);
    const auto isInSight = [this](const char* name) {
        const auto* item = scene().item(name);
        const auto* scroll = scene().item("mail:scroll");
        const QRectF place = item->mapRectToItem(scroll, item->boundingRect());
        return place.top() >= 0 && place.bottom() <= scroll->height();
    };
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(until([&] { return isInSight("mail:attachment:dpkgl.log"); }));
    scene().item("mail:To:")->forceActiveFocus(Qt::TabFocusReason);
    EXPECT_TRUE(until([&] { return isInSight("mail:To:"); }));
}

TEST_F(WindowMailSheet, WritesTheSizeOfAnAttachmentAsTheLanguageDoes) {
    QLocale::setDefault(QLocale(QLocale::German));
    attached = std::string(3 << 19, 'a');
    openSheet();
    EXPECT_TRUE(scene().showsText("dpkgl.log · 1,5 MB"));
    scene().tap("mail:cancel");
    scene().expectGone("composer");
    writeFile("/tmp/dpkgl.log", "a");
    scene().tap("row:support@tavix.example");
    EXPECT_TRUE(until([&] { return scene().showsText("dpkgl.log · 1 byte"); }));
    QLocale::setDefault(QLocale::c());
}

} // namespace wardlock::test
