#include "tests/unit/window/WindowFixture.h"
#include "window/items/Theme.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace wardlock::test {

struct SignCase {
    const char* name;
    double textScale;
    int windowWidth;
    /// Of what grows with the text beside it in a row.
    double signScale;
};

/// Icons, switches and arrows beside text of several sizes.
class WindowSigns : public WindowFixture, public ::testing::WithParamInterface<SignCase> {
protected:
    void openAtScale() {
        installApplication("com.apple.facetime", "FaceTime");
        installApplication("org.berry", "Berry");
        open(0, {GetParam().windowWidth, 844});
        host().appearance().forceTextScale(GetParam().textScale);
        scene().tap("row:Wardlock");
        scene().item("row:Passcode");
    }
    QRectF placeOf(const QQuickItem* item) { return item->mapRectToScene(item->boundingRect()); }
    void expectGrown(const QString& name, QSizeF usual) {
        const auto* item = scene().item(name);
        const QSizeF grown = usual * GetParam().signScale;
        EXPECT_EQ(item->size(), grown.toSize()) << name.toStdString();
    }
    /// Expects the switch inside its row and beside the row's words.
    void expectBeside(const QQuickItem* toggle, const QQuickItem* row) {
        const QRectF outer = placeOf(row);
        const QRectF inner = placeOf(toggle);
        EXPECT_TRUE(outer.adjusted(0, 1, 0, -1).contains(inner));
        for (const auto* child : row->childItems()) {
            const auto words = child->property("text");
            if (child->isVisible() && words.isValid() && child->width() > 0) {
                EXPECT_LE(placeOf(child).right(), inner.left()) << words.toString().toStdString();
            }
        }
    }
    /// The rows of the page do not overlap each other.
    void expectStacked(const QString& prefix) {
        double bottom = 0;
        for (const std::string& name : scene().namesWith(prefix)) {
            const QRectF place = placeOf(scene().find(prefix + QString::fromStdString(name)));
            EXPECT_GE(place.top(), bottom) << name;
            bottom = place.bottom();
        }
    }
    void openPickerAtScale() {
        openAtScale();
        scene().reveal("row:Default");
        scene().tap("row:Default");
        scene().reveal("row:Apps");
        scene().tap("row:Apps");
        scene().item("page:Apps");
    }
};

TEST_P(WindowSigns, GrowInTheRowsOfAPage) {
    openAtScale();
    expectGrown("switch:Enabled", {51, 31});
    const auto* toggle = scene().item("switch:Enabled");
    expectBeside(toggle, scene().item("row:Enabled"));
    expectStacked("row:");
}

TEST_P(WindowSigns, GrowInTheRowsOfThePicker) {
    openPickerAtScale();
    expectGrown("switch:com.apple.facetime", {51, 31});
    const auto* toggle = scene().item("switch:com.apple.facetime");
    expectBeside(toggle, toggle->parentItem());
    const auto* theme = window::Theme::of(*toggle);
    EXPECT_EQ(theme->icon(), qRound(29 * GetParam().signScale));
    EXPECT_GE(toggle->parentItem()->height(), theme->icon() + 4);
    expectStacked("cell:");
}

TEST_P(WindowSigns, FollowAChangeOfTheTextWhileTheyAreShown) {
    openPickerAtScale();
    host().appearance().forceTextScale(1);
    const auto* toggle = scene().item("switch:org.berry");
    EXPECT_EQ(toggle->size(), QSizeF(51, 31));
    EXPECT_EQ(toggle->parentItem()->height(), 35);
    expectBeside(toggle, toggle->parentItem());
    host().appearance().forceTextScale(GetParam().textScale);
    expectGrown("switch:org.berry", {51, 31});
    expectBeside(toggle, toggle->parentItem());
}

INSTANTIATE_TEST_SUITE_P(Sizes, WindowSigns,
                         ::testing::Values(SignCase{"Usual", 1, 390, 1}, SignCase{"Small", 0.8, 390, 1},
                                           SignCase{"Large", 1.5, 390, 1.5},
                                           SignCase{"LargestSigns", 2, 390, 1.5},
                                           SignCase{"UsualInANarrowWindow", 1, 280, 1},
                                           SignCase{"LargeInANarrowWindow", 1.5, 280, 1.15},
                                           SignCase{"LargestInANarrowWindow", 2, 280, 1.15}),
                         [](const auto& size) { return size.param.name; });

} // namespace wardlock::test
