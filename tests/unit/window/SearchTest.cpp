#include "settings/Keys.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

namespace wardlock::test {

using Names = std::vector<std::string>;

class WindowSearch : public WindowFixture {
protected:
    void openPicker() {
        openAccount();
        scene().tap("row:Apps");
        scene().item("page:Apps");
    }
    void installHats() {
        installApplication("org.hats", "H\u00fcte &amp; M\u00fctzen");
        installApplication("org.gloves", "Gloves");
        setAccounts({"Anna"});
        setInAccount(0, kAppsRestricted, platform::Array{});
    }
    void openSearch() {
        scene().press(Qt::Key_F, Qt::ControlModifier);
        scene().item("search");
        EXPECT_TRUE(until([&] { return scene().item("list")->y() == 52; })) << "the field is not wholly open";
    }
    bool showsCells(const Names& names) {
        return until([&] { return scene().namesWith("cell:") == names; });
    }
    bool showsRows(const Names& names) {
        return until([&] { return scene().namesWith("row:") == names; });
    }
    std::string focused() const {
        const auto* item = const_cast<WindowSearch*>(this)->window().activeFocusItem();
        return item ? item->objectName().toStdString() : "";
    }
};

TEST_F(WindowSearch, OpensByTheButtonInTheBar) {
    openWardlock();
    scene().tap("search:open");
    scene().item("search");
    EXPECT_EQ(focused(), "search");
}

TEST_F(WindowSearch, OpensByTheWheelAtTheTopOfTheList) {
    openAccount();
    scene().wheel("list", 15);
    scene().item("search");
    EXPECT_EQ(focused(), "search");
    scene().wheel("list", -15);
    scene().expectGone("search");
}

TEST_F(WindowSearch, StaysClosedWhenTheWheelScrollsUpToTheFirstRow) {
    openAccount();
    auto* list = scene().item("list");
    scene().wheel("list", -90);
    EXPECT_TRUE(until([&] { return !list->property("atYBeginning").toBool(); }));
    for (int turn = 0; turn < 40 && !list->property("atYBeginning").toBool(); ++turn) {
        scene().wheel("list", 15);
        scene().frame();
    }
    scene().wheel("list", 15);
    scene().settle();
    EXPECT_FALSE(scene().shows("search"));
}

TEST_F(WindowSearch, IgnoresCaseAndAccentsInThePicker) {
    installHats();
    openPicker();
    openSearch();
    scene().type("hute");
    EXPECT_TRUE(showsCells({"org.hats"}));
    scene().press(Qt::Key_A, Qt::ControlModifier);
    scene().type("MUTZ hut");
    EXPECT_TRUE(showsCells({"org.hats"}));
    scene().tap("switch:org.hats");
    EXPECT_EQ(account(0, kAppsRestricted), platform::Value(platform::Array{"org.hats"}));
}

TEST_F(WindowSearch, FindsAnIdentifierOnlyWhereItIsShown) {
    installHats();
    setInAccount(0, kAppsRestricted, platform::Array{"org.gone"});
    openPicker();
    EXPECT_TRUE(scene().showsText("org.gone"));
    openSearch();
    scene().type("org");
    EXPECT_TRUE(showsCells({"org.gone"}));
}

TEST_F(WindowSearch, ClearsItsTextAndStaysOpen) {
    installHats();
    openPicker();
    openSearch();
    EXPECT_FALSE(scene().shows("search:clear"));
    scene().type("hute");
    EXPECT_TRUE(showsCells({"org.hats"}));
    scene().settle();
    scene().tap("search:clear");
    EXPECT_EQ(scene().text("search"), "");
    EXPECT_EQ(focused(), "search");
    EXPECT_TRUE(showsCells({"org.gloves", "org.hats"}));
}

TEST_F(WindowSearch, ClosesByEscapeFromItsFieldAndFromARow) {
    installHats();
    openPicker();
    openSearch();
    scene().type("hute");
    EXPECT_TRUE(showsCells({"org.hats"}));
    scene().press(Qt::Key_Return);
    EXPECT_EQ(focused(), "switch:org.hats");
    scene().press(Qt::Key_Escape);
    scene().expectGone("search");
    EXPECT_TRUE(showsCells({"org.gloves", "org.hats"}));
    EXPECT_EQ(scene().text("title"), "Apps");
}

TEST_F(WindowSearch, FindsASettingOfAnyAccountFromTheFirstPage) {
    setAccounts({"Anna", "Tom"});
    open();
    openSearch();
    scene().type("siri");
    EXPECT_TRUE(showsRows({"Siri", "Siri"}));
    EXPECT_TRUE(scene().showsText("Wardlock \u203a Anna"));
    EXPECT_TRUE(scene().showsText("Wardlock \u203a Tom"));
}

TEST_F(WindowSearch, LeadsToTheSettingOfAnAccount) {
    setAccounts({"Anna", "Tom"});
    openWardlock();
    openSearch();
    scene().type("siri tom");
    EXPECT_TRUE(showsRows({"Siri"}));
    EXPECT_TRUE(scene().showsText("Tom"));
    scene().tap("row:Siri");
    scene().item("page:Tom");
    scene().item("switch:Siri");
    EXPECT_TRUE(until([&] { return focused() == "switch:Siri"; }));
    EXPECT_TRUE(scene().item("row:Siri")->property("found").toBool());
    scene().press(Qt::Key_Space);
    EXPECT_EQ(account(1, kRestrictSiri), platform::Value(true));
    EXPECT_EQ(account(0, kRestrictSiri), platform::Value(false));
}

TEST_F(WindowSearch, ShowsARowBelowTheWindowsEdgeOnceItIsFound) {
    setAccounts({"Anna"});
    open(0.35, {390, 500});
    openSearch();
    scene().type("video");
    EXPECT_TRUE(showsRows({"Video"}));
    scene().tap("row:Video");
    for (int page = 0; page < 2; ++page) {
        clock.step(0.35);
        scene().settle();
    }
    scene().item("page:Anna");
    EXPECT_EQ(scene().text("title"), "Anna");
    EXPECT_TRUE(until([&] { return focused() == "switch:Video"; }));
    const auto* row = scene().item("row:Video");
    const double top = row->mapToScene({0, 0}).y();
    EXPECT_GE(top, 0);
    EXPECT_LE(top + row->height(), window().height());
}

TEST_F(WindowSearch, IsStillThereAfterTheWayBack) {
    setAccounts({"Anna"});
    openWardlock();
    openSearch();
    scene().type("siri");
    EXPECT_TRUE(showsRows({"Siri"}));
    scene().tap("row:Siri");
    scene().item("page:Anna");
    scene().tap("back");
    EXPECT_TRUE(showsRows({"Siri"}));
    EXPECT_EQ(scene().text("search"), "siri");
}

TEST_F(WindowSearch, IsNamedForAssistiveTechnology) {
    openWardlock();
    const auto* button = scene().accessible("search:open");
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->role(), QAccessible::Button);
    EXPECT_EQ(button->text(QAccessible::Name), "Search");
    openSearch();
    scene().type("s");
    EXPECT_EQ(scene().accessible("search:clear")->text(QAccessible::Name), "Clear");
}

} // namespace wardlock::test
