// Texts of megabytes, whose layout would take minutes.

#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"
#include "window/models/Text.h"

#include <gtest/gtest.h>

namespace wardlock::test {

namespace {

const std::string megabytes(4 << 20, 'x');

} // namespace

class WindowLongText : public WindowFixture {
protected:
    /// The page of an account of such a name, with the row of the name in sight.
    void openItsAccount() {
        setAccounts({megabytes});
        openWardlock();
        scene().tap("row:" + window::shownText(megabytes));
        scene().item("page:" + window::shownText(megabytes));
    }
};

TEST_F(WindowLongText, IsCutInTheRowOfAnAccount) {
    setAccounts({megabytes, "Ben"});
    openWardlock();
    EXPECT_EQ(scene().item("row:" + window::shownText(megabytes))->height(), 44);
    EXPECT_TRUE(scene().shows("row:Ben"));
}

TEST_F(WindowLongText, IsOneLineInRowsAndTitles) {
    setAccounts({"An\r\nna\u2028B\u2029C\nD"});
    openWardlock();
    const QString drawn = QStringLiteral("row:An na B C D");
    EXPECT_EQ(scene().item(drawn)->height(), 44);
    scene().tap(drawn);
    scene().item("switch:Enabled");
    EXPECT_EQ(scene().text("title"), "An na B C D");
    scene().tap("switch:Enabled");
    EXPECT_EQ(account(0, kAccountName).string(), "An\r\nna\u2028B\u2029C\nD") << "only the drawing differs";
}

TEST_F(WindowLongText, IsCutOnThePageOfAnAccountAndKept) {
    openItsAccount();
    EXPECT_EQ(scene().text("title"), window::shownText(megabytes).toStdString());
    EXPECT_EQ(scene().text("field:Account Name"), window::shownText(megabytes).toStdString());
    scene().tap("switch:Enabled");
    EXPECT_EQ(account(0, kAccountName).string(), megabytes);
}

TEST_F(WindowLongText, IsKeptWhenNothingIsTypedInItsField) {
    openItsAccount();
    scene().tap("field:Account Name");
    EXPECT_EQ(scene().text("field:Account Name"), "");
    scene().press(Qt::Key_Return);
    EXPECT_EQ(scene().text("field:Account Name"), window::shownText(megabytes).toStdString());
    EXPECT_EQ(account(0, kAccountName).string(), megabytes);
}

TEST_F(WindowLongText, IsReplacedByTextTypedInItsField) {
    openItsAccount();
    scene().tap("field:Account Name");
    scene().type("Anna");
    scene().press(Qt::Key_Return);
    EXPECT_EQ(scene().text("field:Account Name"), "Anna");
    EXPECT_EQ(account(0, kAccountName).string(), "Anna");
}

TEST_F(WindowLongText, IsCutInTheNotice) {
    open();
    host().settings().showProblems({megabytes});
    // As a sentence: with a capital letter, and the full stop beyond the cut.
    EXPECT_EQ(host().settings().notice(), window::shownText('X' + megabytes.substr(1) + '.'));
}

TEST(ShownText, IsWholeUpToItsBound) {
    EXPECT_EQ(window::shownText("x\u00e9\u20ac", 3), QStringLiteral(u"x\u00e9\u20ac"));
    EXPECT_FALSE(window::isCut("x\u00e9\u20ac", 3));
}

TEST(ShownText, EndsInAnEllipsisBeyondIt) {
    EXPECT_EQ(window::shownText("x\u00e9\u20acy", 3), QStringLiteral(u"x\u00e9\u20ac\u2026"));
    EXPECT_TRUE(window::isCut("x\u00e9\u20acy", 3));
    EXPECT_EQ(window::shownText(std::string(100, 'x'), 3), QStringLiteral(u"xxx\u2026"));
}

TEST(ShownText, IsNotCutInsideALetter) {
    EXPECT_EQ(window::shownText("xy\U0001F600z", 3), QStringLiteral(u"xy\u2026"));
    EXPECT_EQ(window::shownText("x\U0001F600z", 3), QStringLiteral(u"x\U0001F600\u2026"));
}

} // namespace wardlock::test
