#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/unit/window/Contrast.h"
#include "tests/unit/window/WindowFixture.h"

#include <QAccessible>
#include <QImage>
#include <QSignalSpy>
#include <gtest/gtest.h>

#include <algorithm>

namespace wardlock::test {

using Names = std::vector<std::string>;

class WindowUndo : public WindowFixture {
protected:
    void pressUndo() { scene().press(Qt::Key_Z, Qt::ControlModifier); }
    void pressRedo() { scene().press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier); }
    bool isStored(std::size_t index, std::string_view key) const {
        return platform::boolValue(&static_cast<const platform::Value&>(account(index, key)));
    }
    bool isOn(const char* name) { return scene().item(name)->property("on").toBool(); }
    void openTwoAccounts() {
        setAccounts({"Ann", "Tom"});
        openWardlock();
    }
    void deleteAnn() {
        openTwoAccounts();
        scene().tap("row:Ann");
        scene().item("switch:Enabled");
        scene().reveal("row:Delete Account");
        scene().tap("row:Delete Account");
        scene().item("alert");
        scene().tap("alert:Delete");
        scene().item("offer");
    }
    void backToList() {
        scene().tap("back");
        scene().item("row:Passcode");
    }
    /// Another process changes the settings and announces it; until the window has received that.
    void setElsewhere(const std::vector<std::string>& words) {
        const ProcessResult result = runProcess(programFolder() + "/wardlock", words);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
    }
    std::string focused() {
        const auto* item = window().activeFocusItem();
        return item ? item->objectName().toStdString() : "";
    }
};

TEST_F(WindowUndo, TakesATapBackAndMakesItAgain) {
    openTwoAccounts();
    scene().tap("row:Tom");
    scene().tap("switch:Enabled");
    ASSERT_TRUE(isStored(1, kAccountEnabled));
    pressUndo();
    EXPECT_FALSE(isStored(1, kAccountEnabled));
    EXPECT_FALSE(isOn("switch:Enabled"));
    pressRedo();
    EXPECT_TRUE(isStored(1, kAccountEnabled));
    EXPECT_TRUE(isOn("switch:Enabled"));
}

TEST_F(WindowUndo, TakesTypingBackBeforeAnEarlierChange) {
    openTwoAccounts();
    scene().tap("row:Tom");
    scene().tap("switch:Enabled");
    scene().tap("field:Account Name");
    scene().type("my");
    ASSERT_EQ(scene().text("field:Account Name"), "Tommy");
    pressUndo();
    EXPECT_EQ(scene().text("field:Account Name"), "Tom");
    EXPECT_TRUE(isStored(1, kAccountEnabled));
    pressRedo();
    EXPECT_EQ(scene().text("field:Account Name"), "Tommy");
    pressUndo();
    pressUndo();
    EXPECT_FALSE(isStored(1, kAccountEnabled));
    EXPECT_EQ(accountNames(), (Names{"Ann", "Tom"}));
}

TEST_F(WindowUndo, StoresNothingOfTypingThatWasTakenBack) {
    openTwoAccounts();
    scene().tap("row:Tom");
    scene().tap("field:Account Name");
    scene().type("my");
    pressUndo();
    scene().press(Qt::Key_Return);
    EXPECT_EQ(accountNames(), (Names{"Ann", "Tom"}));
    EXPECT_EQ(scene().text("field:Account Name"), "Tom");
}

TEST_F(WindowUndo, TakesAStoredNameBackFromTheFieldItself) {
    openTwoAccounts();
    scene().tap("row:Tom");
    scene().tap("field:Account Name");
    scene().type("my");
    scene().press(Qt::Key_Return);
    ASSERT_EQ(accountNames(), (Names{"Ann", "Tommy"}));
    scene().tap("field:Account Name");
    pressUndo();
    EXPECT_EQ(accountNames(), (Names{"Ann", "Tom"}));
    EXPECT_EQ(scene().text("field:Account Name"), "Tom");
    scene().item("page:Tom");
}

TEST_F(WindowUndo, WorksWhileAnEmptySearchHasTheFocus) {
    openTwoAccounts();
    scene().tap("switch:Enabled");
    ASSERT_FALSE(document().find(kEnabled)->boolean());
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().item("search");
    scene().type("pass");
    pressUndo();
    EXPECT_EQ(scene().text("search"), "");
    EXPECT_FALSE(document().find(kEnabled)->boolean());
    pressUndo();
    EXPECT_TRUE(document().find(kEnabled)->boolean());
}

TEST_F(WindowUndo, FollowsToThePageOfTheChange) {
    openTwoAccounts();
    scene().tap("row:Tom");
    scene().reveal("switch:Video");
    scene().tap("switch:Video");
    backToList();
    scene().tap("row:Ann");
    scene().item("page:Ann");
    pressUndo();
    scene().item("page:Tom");
    scene().item("switch:Video");
    EXPECT_FALSE(isOn("switch:Video"));
}

TEST_F(WindowUndo, DoesNothingWhileAnAlertOrTheKeypadCoversThePage) {
    openTwoAccounts();
    scene().tap("switch:Enabled");
    scene().tap("add");
    scene().item("alert");
    pressUndo();
    EXPECT_FALSE(document().find(kEnabled)->boolean());
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    scene().tap("row:Passcode");
    clock.step(0.4);
    scene().item("keypad");
    pressUndo();
    EXPECT_FALSE(document().find(kEnabled)->boolean());
}

TEST_F(WindowUndo, GivesTheReasonInANoticeWhereAnotherProcessesChangeWouldBeLost) {
    openTwoAccounts();
    scene().tap("row:Tom");
    scene().tap("field:Account Name");
    scene().type("my");
    scene().press(Qt::Key_Return);
    setElsewhere({"account", "rename", "Tommy", "Thomas"});
    scene().item("page:Thomas");
    pressUndo();
    scene().item("notice");
    EXPECT_EQ(scene().text("notice"), "Cannot undo: Tom: Account Name was changed again.");
    EXPECT_EQ(accountNames(), (Names{"Ann", "Thomas"}));
}

TEST_F(WindowUndo, OffersToReturnADeletedAccount) {
    deleteAnn();
    EXPECT_EQ(scene().text("offer"), "Ann was deleted");
    EXPECT_EQ(accountNames(), Names{"Tom"});
    scene().tap("offer:ok");
    scene().expectGone("offer");
    EXPECT_EQ(accountNames(), (Names{"Ann", "Tom"}));
    scene().item("row:Ann");
}

TEST_F(WindowUndo, OffersThatForTenSeconds) {
    deleteAnn();
    clock.step(9.9);
    EXPECT_TRUE(scene().shows("offer"));
    clock.step(0.2);
    scene().expectGone("offer");
    EXPECT_EQ(accountNames(), Names{"Tom"});
}

TEST_F(WindowUndo, OffersThatAboveANotice) {
    deleteAnn();
    host().settings().showProblems({"cannot do something"});
    scene().item("notice");
    const auto bottom = [](const QQuickItem& item) {
        return item.mapRectToScene(item.boundingRect()).bottom();
    };
    EXPECT_TRUE(until([&] {
        return bottom(*scene().item("offer")) <=
               scene().item("notice")->mapRectToScene(scene().item("notice")->boundingRect()).top();
    }));
    EXPECT_LE(bottom(*scene().item("notice")), window().height());
}

TEST_F(WindowUndo, ReachesTheOfferByTabAndTakesReturn) {
    deleteAnn();
    for (int step = 0; step < 20 && focused() != "offer:ok"; ++step)
        scene().press(Qt::Key_Tab);
    ASSERT_EQ(focused(), "offer:ok");
    scene().press(Qt::Key_Return);
    scene().expectGone("offer");
    EXPECT_EQ(accountNames(), (Names{"Ann", "Tom"}));
    scene().item("row:Ann");
    scene().press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "row:Tom");
    pressRedo();
    EXPECT_EQ(accountNames(), Names{"Tom"});
}

TEST_F(WindowUndo, DescribesTheOfferAsANotificationToAssistiveTechnology) {
    deleteAnn();
    EXPECT_EQ(scene().accessible("offer")->role(), QAccessible::Notification);
    EXPECT_EQ(scene().accessible("offer")->text(QAccessible::Name), QStringLiteral("Ann was deleted"));
    EXPECT_EQ(scene().accessible("offer:ok")->text(QAccessible::Name), QStringLiteral("Undo"));
    EXPECT_EQ(scene().accessible("offer:ok")->role(), QAccessible::Button);
}

class OfferLook : public WindowUndo, public ::testing::WithParamInterface<bool> {};

/// The text and the button on the bar, by the pixels of the window.
TEST_P(OfferLook, IsReadableInLightAndDark) {
    deleteAnn();
    host().appearance().force(GetParam());
    scene().settle();
    const auto* bar = scene().item("offer");
    const QRect place = bar->mapRectToScene(bar->boundingRect()).toRect();
    const auto* button = scene().item("offer:ok");
    const QRect action = button->mapRectToScene(button->boundingRect()).toRect();
    const QImage picture = window().grabWindow();
    const QColor ground = picture.pixelColor(place.left() + 8, place.center().y());
    const auto bestContrast = [&](const QRect& area) {
        double best = 1;
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                best = std::max(best, contrast(picture.pixelColor(x, y), ground));
        return best;
    };
    EXPECT_GE(bestContrast(
                  QRect(place.topLeft(), QPoint(action.left() - 1, place.bottom())).adjusted(16, 16, 0, -16)),
              4.5);
    EXPECT_GE(bestContrast(action.adjusted(0, 8, 0, -8)), 4.5);
}

INSTANTIATE_TEST_SUITE_P(Looks, OfferLook, ::testing::Bool(),
                         [](const auto& look) { return look.param ? "Dark" : "Light"; });

TEST_F(WindowUndo, IsNotAvailableInTheOfferUnderAnAlert) {
    deleteAnn();
    scene().tap("add");
    scene().item("alert");
    EXPECT_FALSE(scene().item("offer:ok")->isEnabled());
    EXPECT_EQ(scene().accessible("offer:ok")->text(QAccessible::Description),
              QStringLiteral("Not available"));
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    EXPECT_TRUE(scene().item("offer:ok")->isEnabled());
    scene().tap("offer:ok");
    EXPECT_EQ(accountNames(), (Names{"Ann", "Tom"}));
}

TEST_F(WindowUndo, ReportsTypingThatIsTakenBackOnce) {
    openTwoAccounts();
    scene().press(Qt::Key_F, Qt::ControlModifier);
    const QSignalSpy reports(scene().item("search"), SIGNAL(changed(QString)));
    scene().type("p");
    EXPECT_EQ(reports.count(), 1);
    pressUndo();
    EXPECT_EQ(reports.count(), 2);
    pressRedo();
    EXPECT_EQ(reports.count(), 3);
}

} // namespace wardlock::test
