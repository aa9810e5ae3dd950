#include "tests/unit/window/WindowFixture.h"

#include <QFont>
#include <gtest/gtest.h>

#include <cmath>

namespace wardlock::test {

using WindowChangeLog = WindowFixture;
using WindowMail = WindowFixture;
using WindowAppearance = WindowFixture;
using WindowWebPage = WindowFixture;

TEST_F(WindowChangeLog, CanBeReadAndScrolled) {
    openWardlock();
    scene().tap("row:Change Log");
    scene().item("page:Change Log");
    EXPECT_EQ(scene().text("title"), "Change Log");
    auto* text = scene().item("text");
    EXPECT_NE(scene().accessible("text")->text(QAccessible::Name).indexOf("The first version."), -1);
    window().resize(390, 300);
    EXPECT_TRUE(until([&] { return text->height() < 300; }));
    scene().touchDrag({195, 250}, {195, 80});
    EXPECT_GT(text->property("contentY").toDouble(), 0);
}

TEST_F(WindowChangeLog, HasAFontOfFifteenPointsAndIgnoresKeys) {
    openWardlock();
    scene().tap("row:Change Log");
    const auto* words = scene().item("words");
    EXPECT_EQ(words->property("font").value<QFont>().pixelSize(), 15);
    const std::string before = scene().text("words");
    scene().tap("words");
    scene().type("x");
    EXPECT_EQ(scene().text("words"), before);
}

TEST_F(WindowMail, IsWrittenChangedAndSent) {
    writeFile("/tmp/dpkgl.log", "packages");
    openWardlock();
    scene().tap("row:support@tavix.example");
    scene().item("composer");
    EXPECT_EQ(scene().text("mail:To:"), "support@tavix.example");
    EXPECT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    scene().tap("mail:Subject:");
    scene().press(Qt::Key_End);
    scene().type("!");
    scene().item("mail:remove:dpkgl.log");
    scene().tap("mail:send");
    ASSERT_EQ(mail.sent.size(), 1U);
    EXPECT_EQ(mail.sent[0].recipients, (std::vector<std::string>{"support@tavix.example"}));
    EXPECT_EQ(mail.sent[0].subject.rfind("Wardlock -- ", 0), 0U);
    EXPECT_EQ(mail.sent[0].subject.back(), '!');
    EXPECT_EQ(mail.sent[0].attachments.size(), 1U);
}

TEST_F(WindowMail, HasATextThatCanBeReplaced) {
    openWardlock();
    scene().tap("row:support@tavix.example");
    EXPECT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    const std::string text = scene().text("mail:body");
    EXPECT_EQ(text.rfind("Application: Wardlock\nDevice: ", 0), 0U) << text;
    EXPECT_NE(text.find("\n\nComments:\nPlease describe in detail what's wrong\n\nReproduce:\n"),
              std::string::npos);
    scene().tap("mail:body");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().type("Nothing <b>works</b>.");
    scene().press(Qt::Key_Return);
    scene().tap("mail:send");
    ASSERT_EQ(mail.sent.size(), 1U);
    EXPECT_EQ(mail.sent[0].body, "Nothing <b>works</b>.\n");
    EXPECT_FALSE(mail.sent[0].isHTML);
}

TEST_F(WindowMail, KeepsItsTitleBetweenItsButtons) {
    open(0, {280, 360});
    host().appearance().forceTextScale(2);
    scene().tap("row:Wardlock");
    scene().reveal("row:support@tavix.example");
    scene().tap("row:support@tavix.example");
    const auto* title = scene().item("mail:title");
    const auto* cancel = scene().item("mail:cancel");
    EXPECT_GE(title->mapToScene({}).x(), cancel->mapToScene({cancel->width(), 0}).x());
    EXPECT_LE(title->mapToScene({title->width(), 0}).x(), scene().item("mail:send")->mapToScene({}).x());
}

TEST_F(WindowMail, IsSentWithoutARemovedAttachment) {
    writeFile("/tmp/dpkgl.log", "packages");
    openWardlock();
    scene().tap("row:support@tavix.example");
    EXPECT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    scene().tap("mail:remove:dpkgl.log");
    scene().expectGone("mail:remove:dpkgl.log");
    scene().tap("mail:send");
    ASSERT_EQ(mail.sent.size(), 1U);
    EXPECT_TRUE(mail.sent[0].attachments.empty());
}

TEST_F(WindowMail, IsCancelledByButtonAndEscape) {
    openWardlock();
    for (const bool byKey : {false, true}) {
        scene().tap("row:support@tavix.example");
        scene().item("composer");
        EXPECT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
        if (byKey)
            scene().press(Qt::Key_Escape);
        else
            scene().tap("mail:cancel");
        scene().expectGone("composer");
    }
    EXPECT_TRUE(mail.sent.empty());
    EXPECT_EQ(scene().text("title"), "Wardlock");
}

TEST_F(WindowMail, DoesNothingWithoutAWayToSend) {
    openWardlock();
    mail.canSend = false;
    scene().tap("row:support@tavix.example");
    scene().settle();
    EXPECT_FALSE(scene().shows("composer"));
}

TEST_F(WindowAppearance, FollowsLightAndDark) {
    openWardlock();
    EXPECT_TRUE(until([&] { return window().grabWindow().pixelColor(4, 200).lightness() > 200; }));
    host().appearance().force(true);
    EXPECT_TRUE(until([&] { return window().grabWindow().pixelColor(4, 200).lightness() < 30; }));
}

TEST_F(WindowAppearance, GrowsItsRowsWithTheText) {
    openWardlock();
    EXPECT_EQ(scene().item("row:Passcode")->height(), 44);
    host().appearance().forceTextScale(2);
    EXPECT_TRUE(until([&] { return scene().item("row:Passcode")->height() == 88; }));
}

TEST_F(WindowAppearance, KeepsLongNamesWithinTheWindow) {
    const std::string longName(200, 'W');
    setAccounts({longName});
    openWardlock();
    const QString row = "row:" + QString::fromStdString(longName);
    scene().tap(row);
    scene().item("page:" + QString::fromStdString(longName));
    const auto* title = scene().item("title");
    const auto* back = scene().item("back");
    EXPECT_GE(title->mapToScene({}).x(), back->mapToScene({back->width(), 0}).x());
    EXPECT_LE(title->mapToScene({title->width(), 0}).x(), 390);
}

TEST_F(WindowAppearance, DrawsItsRowsOnWholePixels) {
    open(0, {1024, 768});
    scene().tap("row:Wardlock");
    for (const char* name : {"row:Passcode", "switch:Enabled", "title", "row:Change Log"}) {
        const QPointF place = scene().item(name)->mapToScene({});
        EXPECT_EQ(place.x(), std::round(place.x())) << name;
        EXPECT_EQ(place.y(), std::round(place.y())) << name;
    }
}

TEST_F(WindowWebPage, ShowsABlackSpinnerWhileItLoads) {
    openWardlock();
    scene().tap("row:More From Tavix");
    auto* web = dynamic_cast<window::PagesModel*>(host().settings().pages())->top()->web();
    ASSERT_TRUE(web);
    web->started();
    EXPECT_EQ(scene().text("spinner", "color"), "#000000");
    web->failed("no network");
    scene().expectGone("spinner");
    EXPECT_FALSE(scene().shows("alert"));
}

} // namespace wardlock::test
