#include "tests/support/BuildPaths.h"
#include "tests/unit/window/WindowFixture.h"

#include <QGuiApplication>
#include <QPalette>
#include <QScreen>
#include <gtest/gtest.h>

#include <algorithm>

namespace wardlock::test {

/// The window on a desktop whose settings portal is another process.
class WindowDesktopAppearance : public WindowFixture {
protected:
    static constexpr double transition = 0.3;

    void startPortal(const std::vector<std::string>& values) {
        portal_ = std::make_unique<Process>(programFolder() + "/test-settings-portal", values);
        ASSERT_EQ(portal_->readLine(), "ready");
    }
    static void setAppearance(const std::string& value) {
        EXPECT_EQ(runProcess(programFolder() + "/test-settings-portal", {"--set", value}).exitCode, 0);
    }
    void openUnforced() {
        open(transition);
        host().appearance().force(std::nullopt);
    }
    /// The colour behind the page's cards.
    QColor ground() { return window().grabWindow().pixelColor(2, window().height() - 2); }
    bool becomesDark() {
        return until([&] { return ground().lightness() < 16; });
    }
    bool becomesLight() {
        return until([&] { return ground().lightness() > 240; });
    }
    bool becomesReduced() {
        return until([&] { return host().appearance().reducedMotion(); });
    }

private:
    std::unique_ptr<Process> portal_;
};

TEST_F(WindowDesktopAppearance, FollowsTheDesktop) {
    startPortal({"color-scheme=1"});
    openUnforced();
    EXPECT_TRUE(becomesDark());
    setAppearance("color-scheme=2");
    EXPECT_TRUE(becomesLight());
    setAppearance("color-scheme=1");
    EXPECT_TRUE(becomesDark());
}

TEST_F(WindowDesktopAppearance, FollowsThePaletteWhenTheDesktopHasNoPreference) {
    startPortal({"color-scheme=1"});
    openUnforced();
    EXPECT_TRUE(becomesDark());
    setAppearance("color-scheme=0");
    EXPECT_TRUE(becomesLight());
    QPalette palette = QGuiApplication::palette();
    palette.setColor(QPalette::Window, Qt::black);
    palette.setColor(QPalette::WindowText, Qt::white);
    QGuiApplication::setPalette(palette);
    EXPECT_TRUE(becomesDark());
}

TEST_F(WindowDesktopAppearance, StaysForcedWhateverTheDesktopReports) {
    startPortal({"color-scheme=2"});
    openUnforced();
    host().appearance().force(true);
    EXPECT_TRUE(becomesDark());
    setAppearance("reduced-motion=1");
    EXPECT_TRUE(becomesReduced());
    EXPECT_TRUE(becomesDark());
    host().appearance().force(std::nullopt);
    EXPECT_TRUE(becomesLight());
}

TEST_F(WindowDesktopAppearance, TakesTheSizeOfItsTextFromTheDesktopUnlessForced) {
    startPortal({"org.gnome.desktop.interface/text-scaling-factor=1.5"});
    open();
    const auto textScaleBecomes = [&](double scale) {
        return until([&] { return host().appearance().textScale() == scale; });
    };
    EXPECT_TRUE(textScaleBecomes(1));
    host().appearance().forceTextScale(std::nullopt);
    EXPECT_TRUE(textScaleBecomes(1.5));
    setAppearance("org.gnome.desktop.interface/text-scaling-factor=3.0");
    EXPECT_TRUE(textScaleBecomes(2.5)) << "the largest that the window shows";
    setAppearance("org.gnome.desktop.interface/text-scaling-factor=1.0");
    EXPECT_TRUE(textScaleBecomes(window().screen()->logicalDotsPerInch() / 96));
    host().appearance().chooseTextScale(1.25);
    setAppearance("org.gnome.desktop.interface/text-scaling-factor=2.0");
    setAppearance("org.gnome.desktop.interface/enable-animations=false");
    EXPECT_TRUE(becomesReduced());
    EXPECT_TRUE(textScaleBecomes(1.25));
}

TEST_F(WindowDesktopAppearance, DrawsItsMarksStrongerForHighContrast) {
    openWardlock();
    const auto chevronLightness = [&] {
        const QImage picture = window().grabWindow();
        const auto* row = scene().item("row:Default");
        const QRect place = row->mapRectToScene(row->boundingRect()).toRect();
        int lightness = 255;
        for (int y = place.top() + 4; y < place.bottom() - 4; ++y)
            for (int x = place.right() - 40; x < place.right() - 8; ++x)
                lightness = std::min(lightness, picture.pixelColor(x, y).lightness());
        return lightness;
    };
    EXPECT_GT(chevronLightness(), 160);
    startPortal({"contrast=1"});
    EXPECT_TRUE(until([&] { return chevronLightness() < 130; }));
    setAppearance("contrast=0");
    EXPECT_TRUE(until([&] { return chevronLightness() > 160; }));
    startPortal({"org.gnome.desktop.a11y.interface/high-contrast=true"});
    EXPECT_TRUE(until([&] { return chevronLightness() < 130; }));
}

TEST_F(WindowDesktopAppearance, FadesPagesInsteadOfSlidingThemWithReducedMotion) {
    startPortal({"reduced-motion=1"});
    openUnforced();
    EXPECT_TRUE(becomesReduced());
    scene().tap("row:Wardlock");
    clock.step(transition);
    auto* page = scene().item("page:Wardlock");
    EXPECT_TRUE(until([&] { return page->opacity() == 1; }));
    bool slid = false;
    double faintest = 1;
    QObject::connect(page, &QQuickItem::xChanged, page, [&] { slid = true; });
    QObject::connect(page, &QQuickItem::opacityChanged, page,
                     [&] { faintest = std::min(faintest, page->opacity()); });
    scene().tap("back");
    EXPECT_TRUE(until([&] { return faintest < 0.1; }));
    EXPECT_FALSE(slid);
    clock.step(transition);
    scene().expectGone("page:Wardlock");
    EXPECT_EQ(scene().text("title"), "Settings");
}

TEST_F(WindowDesktopAppearance, BlinksInsteadOfShakingWithReducedMotion) {
    startPortal({"reduced-motion=1"});
    open();
    EXPECT_TRUE(becomesReduced());
    platform::MutableDictionary locked(document());
    locked.set("kPasscode", "1111");
    writeDocument(locked.copy());
    scene().tap("row:Wardlock");
    scene().tap("row:Passcode");
    clock.step(0.4);
    auto* dots = scene().item("keypad:dots");
    bool blinked = false;
    bool shook = false;
    QObject::connect(dots, &QQuickItem::opacityChanged, dots, [&] { blinked = true; });
    auto* pad = scene().item("keypad");
    QObject::connect(pad, &QQuickItem::xChanged, pad, [&] { shook = true; });
    scene().type("9999");
    EXPECT_TRUE(until([&] { return blinked && dots->opacity() == 1; }));
    EXPECT_FALSE(shook);
}

} // namespace wardlock::test
