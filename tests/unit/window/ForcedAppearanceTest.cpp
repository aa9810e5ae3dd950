#include "tests/unit/window/WindowFixture.h"
#include "window/Options.h"
#include "window/items/Theme.h"

#include <gtest/gtest.h>

namespace wardlock::test {

/// High contrast and reduced motion on a desktop that has no such settings.
class WindowForcedAppearance : public WindowFixture {};

TEST_F(WindowForcedAppearance, IsAskedForByOptions) {
    const auto none = window::Options::parse({});
    EXPECT_FALSE(none.highContrast);
    EXPECT_FALSE(none.reducedMotion);
    const auto both = window::Options::parse({"--high-contrast", "--reduced-motion"});
    EXPECT_EQ(both.error, "");
    EXPECT_TRUE(both.highContrast);
    EXPECT_TRUE(both.reducedMotion);
}

TEST_F(WindowForcedAppearance, TakesAScaleOfTextsWithinItsLimits) {
    for (const char* scale : {"0.8", "1", "1.5", "2.5"}) {
        const auto options = window::Options::parse({"--text-scale", scale});
        EXPECT_EQ(options.error, "");
        EXPECT_EQ(options.textScale, std::stod(scale));
    }
    for (const char* scale : {"nan", "inf", "0.7", "2.6", "-1", "1.5x", "big", ""})
        EXPECT_NE(window::Options::parse({"--text-scale", scale}).error, "") << scale;
}

TEST_F(WindowForcedAppearance, StrengthensTheColours) {
    open();
    const auto* theme = window::Theme::of(*scene().item("row:Wardlock"));
    const QColor usual = theme->chevron();
    host().appearance().forceHighContrast(true);
    EXPECT_LT(theme->chevron().lightness(), usual.lightness());
    host().appearance().forceHighContrast(false);
    EXPECT_EQ(theme->chevron(), usual);
}

TEST_F(WindowForcedAppearance, LetsNoPageSlide) {
    open(0.3);
    host().appearance().forceReducedMotion(true);
    scene().tap("row:Wardlock");
    bool slid = false;
    auto* page = scene().item("page:Wardlock");
    EXPECT_EQ(page->x(), 0);
    QObject::connect(page, &QQuickItem::xChanged, page, [&] { slid = true; });
    clock.step(0.3);
    EXPECT_TRUE(until([&] { return page->opacity() == 1; }));
    EXPECT_FALSE(slid);
}

} // namespace wardlock::test
