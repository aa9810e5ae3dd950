#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

class WindowPicker : public WindowFixture {
protected:
    void openPicker() {
        openAccount();
        scene().tap("row:Apps");
        scene().item("page:Apps");
    }
    void install() {
        installApplication("org.zebra", "zebra");
        installApplication("org.apple", "Apple Tree");
        installApplication("org.berry", "berry");
        setAccounts({"Anna"});
        setInAccount(0, kAppsRestricted, platform::Array{"org.zebra"});
    }
    /// One account that restricts as many applications.
    void restrictMany(int count) {
        setAccounts({"Anna"});
        platform::MutableArray many;
        for (int i = 0; i < count; ++i)
            many.append("org.app" + std::to_string(i));
        setInAccount(0, kAppsRestricted, many.copy());
    }
    std::vector<std::string> restricted() const {
        std::vector<std::string> all;
        const platform::Value list = account(0, kAppsRestricted);
        for (const auto& identifier : list.array())
            all.emplace_back(identifier.string());
        return all;
    }
};

TEST_F(WindowPicker, ListsTheRestrictedFirstThenTheOthersByName) {
    install();
    openPicker();
    EXPECT_FALSE(scene().showsText("Nothing here"));
    EXPECT_EQ(scene().namesWith("cell:"), (std::vector<std::string>{"org.zebra", "org.apple", "org.berry"}));
    EXPECT_TRUE(scene().item("switch:org.zebra")->property("on").toBool());
    EXPECT_FALSE(scene().item("switch:org.berry")->property("on").toBool());
    EXPECT_EQ(scene().item("cell:org.zebra")->height(), 35);
    EXPECT_TRUE(scene().showsText("Apple Tree"));
}

TEST_F(WindowPicker, ShowsTheEndOfAnIdentifierThatIsTooLong) {
    setAccounts({"Anna"});
    setInAccount(
        0, kAppsRestricted,
        platform::Array{"com.example.a", "com.example.messages", "com.example.pictures", "com.example.z"});
    openPicker();
    const double height = scene().item("cell:com.example.a")->height();
    host().appearance().chooseTextScale(2);
    ASSERT_TRUE(until([&] { return scene().item("cell:com.example.a")->height() > height; }));
    const auto pictureOf = [&](const char* cell) {
        const auto* item = scene().item(cell);
        return window().grabWindow().copy(item->mapRectToScene(item->boundingRect()).toRect());
    };
    EXPECT_NE(pictureOf("cell:com.example.messages"), pictureOf("cell:com.example.pictures"));
}

TEST_F(WindowPicker, SavesASwitchAtOnceAndMovesNoRow) {
    install();
    openPicker();
    const auto other = listen();
    scene().tap("switch:org.berry");
    EXPECT_EQ(restricted(), (std::vector<std::string>{"org.zebra", "org.berry"}));
    EXPECT_TRUE(scene().item("switch:org.berry")->property("on").toBool());
    EXPECT_EQ(scene().namesWith("cell:"), (std::vector<std::string>{"org.zebra", "org.apple", "org.berry"}));
    const auto line = other->readLine();
    ASSERT_TRUE(line);
    EXPECT_EQ(line->rfind("kAppsRestricted = ", 0), 0U) << *line;
}

TEST_F(WindowPicker, ReactsToItsSwitchesOnly) {
    install();
    openPicker();
    scene().tap("cell:org.berry");
    scene().touch("cell:org.zebra");
    scene().settle();
    EXPECT_EQ(restricted(), std::vector<std::string>{"org.zebra"});
    EXPECT_EQ(scene().text("title"), "Apps");
}

TEST_F(WindowPicker, RegroupsWhenItIsOpenedAgain) {
    install();
    openPicker();
    scene().tap("switch:org.zebra");
    scene().touch("switch:org.berry");
    scene().tap("back");
    scene().expectGone("page:Apps");
    scene().tap("row:Apps");
    scene().item("page:Apps");
    EXPECT_EQ(scene().namesWith("cell:"), (std::vector<std::string>{"org.berry", "org.apple", "org.zebra"}));
}

TEST_F(WindowPicker, ListsItsRowsAgainWhenAnotherProcessChangesThem) {
    install();
    openPicker();
    setInAccount(0, kAppsRestricted, platform::Array{"org.apple"});
    announce();
    const std::vector<std::string> restrictedFirst{"org.apple", "org.berry", "org.zebra"};
    EXPECT_TRUE(until([&] { return scene().namesWith("cell:") == restrictedFirst; }));
}

TEST_F(WindowPicker, ShowsAnEmptySectionWithoutApplications) {
    setAccounts({"Anna"});
    setInAccount(0, kAppsRestricted, platform::Array{});
    openPicker();
    EXPECT_EQ(scene().namesWith("cell:"), std::vector<std::string>());
    EXPECT_TRUE(scene().showsText("Nothing here"));
}

TEST_F(WindowPicker, BuildsOnlyTheVisibleRows) {
    restrictMany(2000);
    openPicker();
    auto* list = scene().item("list");
    EXPECT_EQ(list->property("count").toInt(), 2000);
    auto* content = list->property("contentItem").value<QQuickItem*>();
    EXPECT_LT(content->childItems().size(), 60);
}

TEST_F(WindowPicker, GivesALongNameMoreLinesWhereTheTextIsLarge) {
    installApplication("org.short", "Mail");
    installApplication("org.long", "Reader of Newspapers");
    installApplication("org.endless",
                       "The Reader of All the Newspapers of the Whole World and of Its Journals");
    installApplication("org.word", std::string(200, 'w'));
    setAccounts({"Anna"});
    openPicker();
    for (const QString row : {"cell:org.short", "cell:org.long", "cell:org.endless", "cell:org.word"})
        EXPECT_EQ(scene().item(row)->height(), 35) << row.toStdString();
    host().appearance().forceTextScale(2);
    EXPECT_EQ(scene().item("cell:org.short")->height(), 70);
    const double twoLines = scene().item("cell:org.long")->height();
    EXPECT_GT(twoLines, 80);
    const double threeLines = scene().reveal("cell:org.endless")->height();
    EXPECT_GT(threeLines, twoLines);
    EXPECT_LT(threeLines, 2 * twoLines);
    // A word is elided rather than broken.
    EXPECT_EQ(scene().reveal("cell:org.word")->height(), 70);
}

TEST_F(WindowPicker, FitsItsRowsToTheWidthWhereTheTextIsLarge) {
    installApplication("org.long", "Reader of Newspapers");
    setAccounts({"Anna"});
    openPicker();
    host().appearance().forceTextScale(2);
    const double narrow = scene().item("cell:org.long")->height();
    window().resize(1024, 768);
    EXPECT_TRUE(until([&] { return scene().item("cell:org.long")->height() < narrow; }));
    EXPECT_EQ(scene().item("cell:org.long")->height(), 70);
}

TEST_F(WindowPicker, BringsTheKeyboardToItsLastRowAndBack) {
    restrictMany(2000);
    openPicker();
    const auto cells = scene().namesWith("cell:");
    scene().press(Qt::Key_End);
    const auto last = window().activeFocusItem()->objectName();
    EXPECT_TRUE(last.startsWith("switch:org.app")) << last.toStdString();
    EXPECT_TRUE(scene().item("list")->property("atYEnd").toBool());
    EXPECT_FALSE(scene().shows("cell:" + QString::fromStdString(cells.front())));
    scene().press(Qt::Key_Home);
    EXPECT_EQ(window().activeFocusItem()->objectName(), "switch:" + QString::fromStdString(cells.front()));
}

TEST_F(WindowPicker, ShowsAScrolledSwitchAsItIsSaved) {
    restrictMany(200);
    openPicker();
    const QString first = QString::fromStdString(scene().namesWith("switch:").front());
    scene().tap("switch:" + first);
    auto* list = scene().item("list");
    list->setProperty("contentY", 5000);
    scene().expectGone("switch:" + first);
    scene().reveal("switch:" + first);
    EXPECT_FALSE(scene().item("switch:" + first)->property("on").toBool());
}

} // namespace wardlock::test
