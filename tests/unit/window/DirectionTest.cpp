#include "platform/ui/UITextView.h"
#include "tests/unit/window/WindowFixture.h"
#include "window/models/TextParts.h"

#include <QGuiApplication>
#include <gtest/gtest.h>

namespace wardlock::test {

namespace {

using Parts = QStringList;

const QString hello = QStringLiteral(u"\u05e9\u05dc\u05d5\u05dd");
const QString world = QStringLiteral(u"\u0639\u0627\u0644\u0645");

} // namespace

class WindowDirection : public WindowFixture {
protected:
    void openChangeLog() {
        openWardlock();
        scene().reveal("row:Change Log");
        scene().tap("row:Change Log");
        scene().item("page:Change Log");
    }
    /// Shows another text in place of the change log.
    void show(const QString& text) {
        auto& application = host().settings().application();
        application.run([&] {
            const auto view = application.screen().page()->contentView<platform::UITextView>();
            view->setText(text.toStdString());
        });
    }
    /// The sides at which the parts of the change log begin, from top to bottom.
    std::vector<int> sides() {
        std::vector<int> sides;
        for (const QQuickItem* part : scene().item("words")->parentItem()->childItems())
            if (part->objectName() == QLatin1String("words"))
                sides.push_back(sideOf(part));
        return sides;
    }
    static int sideOf(const QQuickItem* text) {
        return text->property("effectiveHorizontalAlignment").toInt();
    }
    /// The side of the offer after an account with that name was deleted.
    int sideOfOfferAfterDeleting(const QString& name) {
        setAccounts({name.toStdString()});
        openWardlock();
        scene().tap("row:" + name);
        scene().reveal("row:Delete Account");
        scene().tap("row:Delete Account");
        scene().tap("alert:Delete");
        return sideOf(scene().item("offer:words"));
    }
};

TEST_F(WindowDirection, FollowsTheTextOnTheChangeLog) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openChangeLog();
    EXPECT_EQ(sides(), std::vector<int>{Qt::AlignLeft});
}

TEST_F(WindowDirection, FollowsEachPartOfTheChangeLog) {
    openChangeLog();
    show("Version 2\n- " + hello + "\n- " + world + "\n\nVersion 1");
    EXPECT_TRUE(until([&] {
        return sides() == std::vector<int>{Qt::AlignLeft, Qt::AlignRight, Qt::AlignLeft};
    }));
}

TEST_F(WindowDirection, IsThatOfTheLanguageInANoticeThatBeginsWithAName) {
    EXPECT_EQ(sideOfOfferAfterDeleting(hello), Qt::AlignLeft);
}

TEST_F(WindowDirection, IsThatOfTheLanguageInANoticeOfAMirroredWindow) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(sideOfOfferAfterDeleting("Ann"), Qt::AlignLeft);
}

TEST_F(WindowDirection, IsThatOfTheWindowInAnEmptyField) {
    QGuiApplication::setLayoutDirection(Qt::RightToLeft);
    openWardlock();
    scene().tap("search:open");
    EXPECT_EQ(sideOf(scene().item("search")), Qt::AlignRight);
    scene().press(Qt::Key_Escape);
    scene().tap("add");
    EXPECT_EQ(sideOf(scene().item("alert:field")->childItems().constFirst()->childItems().constFirst()),
              Qt::AlignRight);
}

TEST(PartsByDirection, AreTheWholeTextInOneDirection) {
    EXPECT_EQ(window::partsByDirection(""), Parts{""});
    EXPECT_EQ(window::partsByDirection("one\ntwo\n"), Parts{"one\ntwo\n"});
    EXPECT_EQ(window::partsByDirection(hello + "\n" + world), Parts{hello + "\n" + world});
}

TEST(PartsByDirection, BeginWhereTheFirstLetterIsOfAnotherDirection) {
    EXPECT_EQ(window::partsByDirection("one\n" + hello + " two\n(three)"),
              (Parts{"one", hello + " two", "(three)"}));
}

TEST(PartsByDirection, HaveTheLinesWithoutLettersThatFollow) {
    EXPECT_EQ(window::partsByDirection("1.0\n" + hello + "\n\n---\none"),
              (Parts{"1.0\n" + hello + "\n\n---", "one"}));
}

TEST(PartsByDirection, AreBoundedInNumber) {
    QString text;
    for (int i = 0; i < 1000; ++i)
        text += "one\n" + hello + '\n';
    const Parts parts = window::partsByDirection(text);
    EXPECT_EQ(parts.size(), 200);
    EXPECT_EQ(parts.join('\n'), text);
}

} // namespace wardlock::test
