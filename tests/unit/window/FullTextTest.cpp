#include "tests/unit/window/WindowFixture.h"

#include <QTest>
#include <gtest/gtest.h>

namespace wardlock::test {

/// Names that are too long for their place, and what the window shows of them beside it.
class WindowFullText : public WindowFixture {
protected:
    static constexpr const char* longName = "Bartholomew-Maximilian of the Second Floor, on Sundays";

    void point(const QString& name) { QTest::mouseMove(&window(), scene().middleOf(name).toPoint()); }
    std::string shown() {
        scene().item("fullText");
        return scene().text("fullText:words");
    }
    /// Waits until what rests has been looked at: then the text of another place is shown.
    void expectGone() {
        EXPECT_TRUE(until([&] { return !scene().shows("fullText"); }));
    }
};

TEST_F(WindowFullText, IsShownWhereTheMouseRestsOnAnElidedName) {
    setAccounts({longName, "Ben"});
    openWardlock();
    point("row:Ben");
    point(QStringLiteral("row:") + longName);
    EXPECT_EQ(shown(), longName);
    point("row:Ben");
    expectGone();
}

TEST_F(WindowFullText, IsShownForTheTitleOfAPageAndForAField) {
    setAccounts({longName});
    openWardlock();
    scene().tap(QStringLiteral("row:") + longName);
    scene().item("field:Account Name");
    point("title");
    EXPECT_EQ(shown(), longName);
    point("switch:Enabled");
    expectGone();
    point("field:Account Name");
    EXPECT_EQ(shown(), longName);
}

TEST_F(WindowFullText, IsShownForAnApplicationOfThePicker) {
    installApplication("org.example.long", longName);
    openAccount();
    scene().tap("row:Apps");
    const QString cell = QStringLiteral("cell:org.example.long");
    scene().reveal(cell);
    QTest::mouseMove(&window(), scene().item(cell)->mapToScene({60, 20}).toPoint());
    EXPECT_EQ(shown(), longName);
}

TEST_F(WindowFullText, StaysInTheWindow) {
    // Longer than all lines that a row of a narrow window has.
    std::string name;
    for (int i = 0; i < 4; ++i)
        name += longName;
    setAccounts({name});
    open(0, {280, 400});
    scene().tap("row:Wardlock");
    const QString row = "row:" + QString::fromStdString(name);
    scene().reveal(row);
    point(row);
    EXPECT_EQ(shown(), name);
    const auto* tip = scene().item("fullText");
    EXPECT_TRUE(QRectF(QPointF(), QSizeF(window().size()))
                    .contains(tip->mapRectToScene(QRectF(0, 0, tip->width(), tip->height()))));
}

TEST_F(WindowFullText, IsShownForTheRowToWhichTheKeyboardMoves) {
    setAccounts({longName});
    openWardlock();
    const auto* row = scene().item(QStringLiteral("row:") + longName);
    for (int i = 0; i < 20 && !row->hasActiveFocus(); ++i)
        scene().press(Qt::Key_Tab);
    ASSERT_TRUE(row->hasActiveFocus());
    EXPECT_EQ(shown(), longName);
    scene().press(Qt::Key_Tab);
    expectGone();
}

TEST_F(WindowFullText, IsHiddenByAPress) {
    setAccounts({longName});
    openWardlock();
    point(QStringLiteral("row:") + longName);
    shown();
    scene().tap(QStringLiteral("row:") + longName);
    EXPECT_FALSE(scene().shows("fullText"));
}

} // namespace wardlock::test
