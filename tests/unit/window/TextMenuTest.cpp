#include "tests/unit/window/WindowFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>
#include <gtest/gtest.h>

namespace wardlock::test {

/// The menu of text fields.
class WindowTextMenu : public WindowFixture {
protected:
    void openAt(const QString& name) {
        QTest::mouseClick(&window(), Qt::RightButton, {}, scene().middleOf(name).toPoint());
        scene().item("menu");
    }
    void openSearch() {
        scene().tap("search:open");
        scene().item("search");
        ASSERT_TRUE(until([&] { return scene().item("list")->y() == 52; }));
        scene().frame();
    }
    bool offers(const QString& entry) { return scene().item("menu:" + entry)->isEnabled(); }
    static void setClipboard(const QString& text) { QGuiApplication::clipboard()->setText(text); }
    static std::string clipboard() { return QGuiApplication::clipboard()->text().toStdString(); }
};

TEST_F(WindowTextMenu, OffersWhatIsPossible) {
    setAccounts({"Ann"});
    openAccount();
    QGuiApplication::clipboard()->clear();
    openAt("field:Account Name");
    EXPECT_FALSE(offers("Cut"));
    EXPECT_FALSE(offers("Copy"));
    EXPECT_FALSE(offers("Paste"));
    EXPECT_TRUE(offers("Select All"));
    scene().tap("menu:Copy");
    EXPECT_TRUE(scene().shows("menu"));
    scene().tap("menu:Select All");
    scene().expectGone("menu");
    openAt("field:Account Name");
    EXPECT_TRUE(offers("Cut"));
    EXPECT_TRUE(offers("Copy"));
}

TEST_F(WindowTextMenu, PastesIntoAFieldWhoseTextIsThenStored) {
    setAccounts({"Ann"});
    openAccount();
    setClipboard("Tom");
    openAt("field:Account Name");
    scene().tap("menu:Select All");
    openAt("field:Account Name");
    scene().tap("menu:Paste");
    EXPECT_EQ(scene().text("field:Account Name"), "Tom");
    scene().press(Qt::Key_Return);
    EXPECT_EQ(accountNames(), std::vector<std::string>{"Tom"});
}

TEST_F(WindowTextMenu, CutsAndCopiesWhatIsSelected) {
    setAccounts({"Ann"});
    openAccount();
    openAt("field:Account Name");
    scene().tap("menu:Select All");
    openAt("field:Account Name");
    scene().tap("menu:Copy");
    EXPECT_EQ(clipboard(), "Ann");
    EXPECT_EQ(scene().text("field:Account Name"), "Ann");
    setClipboard({});
    openAt("field:Account Name");
    scene().tap("menu:Cut");
    EXPECT_EQ(clipboard(), "Ann");
    EXPECT_EQ(scene().text("field:Account Name"), "");
}

TEST_F(WindowTextMenu, TakesNothingFromASecretField) {
    openFixtureBundle();
    setClipboard("from elsewhere");
    scene().reveal("field:PIN");
    scene().tap("field:PIN");
    scene().type("hidden");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    openAt("field:PIN");
    EXPECT_FALSE(offers("Cut"));
    EXPECT_FALSE(offers("Copy"));
    EXPECT_TRUE(offers("Paste"));
}

TEST_F(WindowTextMenu, DisappearsByATapElsewhereWhichDoesNothingElse) {
    openAccount();
    openAt("field:Account Name");
    const bool on = scene().item("switch:Enabled")->property("on").toBool();
    scene().tap("switch:Enabled");
    scene().expectGone("menu");
    EXPECT_EQ(scene().item("switch:Enabled")->property("on").toBool(), on);
    EXPECT_TRUE(scene().item("field:Account Name")->hasActiveFocus());
}

TEST_F(WindowTextMenu, IsUsedByKeysAlone) {
    setAccounts({"Ann"});
    openAccount();
    setClipboard("Tom");
    scene().tap("field:Account Name");
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().press(Qt::Key_Menu);
    scene().item("menu");
    for (int i = 0; i < 3; ++i)
        scene().press(Qt::Key_Down);
    scene().press(Qt::Key_Return);
    scene().expectGone("menu");
    EXPECT_EQ(scene().text("field:Account Name"), "Tom");
    scene().press(Qt::Key_Menu);
    scene().item("menu");
    scene().press(Qt::Key_Escape);
    scene().expectGone("menu");
    EXPECT_TRUE(scene().item("field:Account Name")->hasActiveFocus());
}

TEST_F(WindowTextMenu, IsThereInAlertsSearchAndMail) {
    openWardlock();
    scene().tap("add");
    setClipboard("Tom");
    openAt("alert:field");
    scene().tap("menu:Paste");
    EXPECT_TRUE(scene().item("alert:Create")->isEnabled());
    scene().tap("alert:Create");
    openSearch();
    openAt("search");
    scene().tap("menu:Paste");
    EXPECT_EQ(scene().text("search"), "Tom");
    scene().tap("search:cancel");
    ASSERT_TRUE(until([&] { return scene().item("list")->y() == 0; }));
    scene().frame();
    scene().reveal("row:support@tavix.example");
    scene().tap("row:support@tavix.example");
    ASSERT_TRUE(until([&] { return scene().item("composer")->y() == 24; }));
    openAt("mail:body");
    scene().tap("menu:Paste");
    EXPECT_NE(scene().text("mail:body").find("Tom"), std::string::npos);
}

TEST_F(WindowTextMenu, StaysWithinTheWindow) {
    open(0, {280, 360});
    openSearch();
    openAt("search");
    const auto* menu = scene().item("menu");
    EXPECT_TRUE(QRectF(0, 0, 280, 360).contains(menu->mapRectToScene(menu->boundingRect())));
}

} // namespace wardlock::test
