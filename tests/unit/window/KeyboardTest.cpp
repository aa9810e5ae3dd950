#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/unit/window/AccountRows.h"
#include "tests/unit/window/Contrast.h"
#include "tests/unit/window/WindowFixture.h"

#include <QImage>
#include <gtest/gtest.h>

#include <algorithm>

namespace wardlock::test {

namespace {

using Names = std::vector<std::string>;

} // namespace

/// The window moved through by keys alone, on pages longer than the window.
class WindowKeyboard : public WindowFixture {
protected:
    static constexpr QSize low{390, 420};

    void openLowAccount() {
        open(0, low);
        scene().tap("row:Wardlock");
        scene().tap("row:Default");
        scene().item("field:Account Name");
    }
    void openLowPicker() {
        for (int number = 100; number < 130; ++number)
            installApplication("com.example.app" + std::to_string(number), std::to_string(number));
        openLowAccount();
        scene().tap("row:Apps");
        scene().item("cell:com.example.app100");
    }
    std::string focused() {
        const auto* item = window().activeFocusItem();
        return item ? item->objectName().toStdString() : "";
    }
    /// Whether the row around the item is.
    bool isWhollyInSight(const QQuickItem& item) {
        const auto* list = scene().item("list");
        const auto* row = &item;
        while (row->parentItem()->parentItem() != list)
            row = row->parentItem();
        const QRectF place = row->mapRectToItem(list, row->boundingRect());
        return place.top() >= -0.5 && place.bottom() <= list->height() + 0.5;
    }
    /// What has the keyboard focus after each press of the key, until the first comes again.
    Names circle(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        constexpr std::size_t most = 200;
        Names names;
        while (names.size() < most) {
            scene().press(key, modifiers);
            if (!names.empty() && focused() == names.front())
                return names;
            names.push_back(focused());
            if (names.back().starts_with("switch:") || names.back().starts_with("row:")) {
                EXPECT_TRUE(isWhollyInSight(*window().activeFocusItem())) << names.back();
            }
        }
        ADD_FAILURE() << "the focus does not return to " << names.front();
        return names;
    }
    /// The rows of an account and then the bar.
    static Names accountStops() {
        Names stops(accountRows.begin(), accountRows.end());
        stops.insert(stops.end(), {"back", "search:open"});
        return stops;
    }
};

TEST_F(WindowKeyboard, ReachesEveryRowOfALongPageByTabAndReturns) {
    openLowAccount();
    EXPECT_EQ(circle(Qt::Key_Tab), accountStops());
}

TEST_F(WindowKeyboard, GoesBackThroughALongPageByShiftTab) {
    openLowAccount();
    scene().press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "switch:Enabled");
    auto expected = accountStops();
    std::ranges::reverse(expected);
    EXPECT_EQ(circle(Qt::Key_Backtab, Qt::ShiftModifier), expected);
}

TEST_F(WindowKeyboard, ReachesEveryRowOfAPickerByTab) {
    openLowPicker();
    const auto names = circle(Qt::Key_Tab);
    EXPECT_EQ(names.back(), "search:open");
    for (int number = 100; number < 130; ++number)
        EXPECT_EQ(std::ranges::count(names, "switch:com.example.app" + std::to_string(number)), 1) << number;
}

TEST_F(WindowKeyboard, ReachesTheNoticeAfterTheRows) {
    setAccounts({"Anna", "Ben"});
    openWardlock();
    scene().tap("row:Ben");
    scene().item("switch:Editing");
    setAccounts({"Anna"});
    announce();
    scene().item("notice");
    scene().item("row:Anna");
    EXPECT_EQ(circle(Qt::Key_Tab), (Names{"switch:Enabled", "row:Passcode", "row:Anna", "row:@TavixCo",
                                          "row:support@tavix.example", "row:Change Log",
                                          "row:More From Tavix", "notice:ok", "back", "search:open", "add"}));
    while (focused() != "notice:ok")
        scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    scene().press(Qt::Key_Return);
    scene().expectGone("notice");
}

TEST_F(WindowKeyboard, GoesFromTheSearchToTheRowsItFound) {
    openLowPicker();
    scene().press(Qt::Key_F, Qt::ControlModifier);
    scene().type("105");
    EXPECT_TRUE(until([&] { return scene().namesWith("cell:").size() == 1; }));
    EXPECT_EQ(focused(), "search");
    EXPECT_EQ(circle(Qt::Key_Tab), (Names{"search:clear", "search:cancel", "switch:com.example.app105",
                                          "back", "search:open", "search"}));
}

TEST_F(WindowKeyboard, ReachesTheBackButtonOfATextByTab) {
    openWardlock();
    scene().tap("row:Change Log");
    scene().item("words");
    scene().press(Qt::Key_Tab);
    EXPECT_EQ(focused(), "back");
}

TEST_F(WindowKeyboard, ShowsTheFocusOnlyWhileItIsInUse) {
    openLowAccount();
    EXPECT_FALSE(scene().shows("ring"));
    scene().tap("field:Account Name");
    scene().type("X");
    EXPECT_FALSE(scene().shows("ring")) << "typing alone does not move the focus";
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(scene().shows("ring"));
    scene().tap("switch:Enabled");
    EXPECT_FALSE(scene().shows("ring"));
    scene().press(Qt::Key_Down);
    EXPECT_TRUE(scene().shows("ring"));
}

TEST_F(WindowKeyboard, SurroundsTheRow) {
    openLowAccount();
    const auto ringIsAround = [this](const char* name) {
        const auto* ring = scene().item("ring");
        const auto* row = scene().item(name);
        return ring->mapRectToScene(ring->boundingRect()) == row->mapRectToScene(row->boundingRect());
    };
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(ringIsAround("row:Enabled"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(ringIsAround("row:Account Name"));
    scene().press(Qt::Key_Tab);
    EXPECT_TRUE(ringIsAround("row:Apps"));
}

/// The colours of the focus ring, light or dark, in usual or high contrast.
struct Look {
    bool dark;
    bool highContrast;
};

class FocusRingContrast : public WindowKeyboard, public ::testing::WithParamInterface<Look> {
protected:
    void chooseLook() {
        host().appearance().force(GetParam().dark);
        if (!GetParam().highContrast)
            return;
        portal_ = std::make_unique<Process>(programFolder() + "/test-settings-portal",
                                            std::vector<std::string>{"contrast=1"});
        ASSERT_EQ(portal_->readLine(), "ready");
        ASSERT_TRUE(until([&] { return host().appearance().highContrast(); }));
    }
    /// What is inside the ring and what is outside of it, at the middle of its left side.
    void expectContrast(const std::string& place) {
        SCOPED_TRACE(place);
        scene().settle();
        const auto* ring = scene().item("ring");
        const QRectF around = ring->mapRectToScene(ring->boundingRect());
        const QImage picture = window().grabWindow();
        const double width = ring->property("border").value<QObject*>()->property("width").toDouble();
        EXPECT_EQ(width, GetParam().highContrast ? 4 : 3);
        const int y = static_cast<int>(around.center().y());
        const int left = static_cast<int>(around.left());
        const QColor line = picture.pixelColor(left + 1, y);
        EXPECT_GE(contrast(line, picture.pixelColor(left + static_cast<int>(width) + 1, y)), 3);
        if (left > 1) {
            EXPECT_GE(contrast(line, picture.pixelColor(left - 2, y)), 3);
        }
    }

private:
    std::unique_ptr<Process> portal_;
};

TEST_P(FocusRingContrast, IsEnoughOnEveryGround) {
    setAccounts({"Anna", "Ben"});
    openWardlock();
    chooseLook();
    scene().press(Qt::Key_Tab);
    expectContrast("a switch");
    scene().press(Qt::Key_Tab);
    expectContrast("a button");
    scene().press(Qt::Key_Return);
    clock.step(0.4);
    scene().item("keypad");
    scene().press(Qt::Key_Tab);
    expectContrast("the keypad");
    scene().press(Qt::Key_Escape);
    clock.step(0.4);
    scene().expectGone("keypad");
    scene().tap("add");
    scene().item("alert");
    EXPECT_TRUE(
        until([&] { return scene().item("alert")->scale() == 1 && scene().item("alert")->opacity() == 1; }));
    scene().press(Qt::Key_Tab);
    expectContrast("an alert");
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    scene().tap("row:Ben");
    scene().item("switch:Editing");
    setAccounts({"Anna"});
    announce();
    scene().item("row:Anna");
    scene().press(Qt::Key_Backtab, Qt::ShiftModifier);
    for (int step = 0; step < 20 && focused() != "notice:ok"; ++step)
        scene().press(Qt::Key_Tab);
    expectContrast("a notice");
    for (int step = 0; step < 20 && focused() != "back"; ++step)
        scene().press(Qt::Key_Tab);
    expectContrast("the bar");
}

INSTANTIATE_TEST_SUITE_P(Looks, FocusRingContrast,
                         ::testing::Values(Look{false, false}, Look{true, false}, Look{false, true},
                                           Look{true, true}),
                         [](const auto& look) {
                             return std::string(look.param.dark ? "Dark" : "Light") +
                                    (look.param.highContrast ? "InHighContrast" : "");
                         });

} // namespace wardlock::test
