#include "platform/services/DesktopAppearance.h"

#include "platform/runtime/MainLoop.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/TestTimeout.h"

namespace wardlock::test {
namespace {

using platform::DesktopAppearance;

class DesktopAppearanceMonitor : public BusFixture {
protected:
    static std::unique_ptr<Process> startPortal(const std::vector<std::string>& values) {
        auto portal = std::make_unique<Process>(programFolder() + "/test-settings-portal", values);
        EXPECT_EQ(portal->readLine(), "ready");
        return portal;
    }
    static void setAppearance(const std::string& value) {
        EXPECT_EQ(runProcess(programFolder() + "/test-settings-portal", {"--set", value}).exitCode, 0);
    }
    void watch() {
        watch_ = platform::monitorDesktopAppearance([this] { ++changes_; });
    }
    void watchUntilAnswered() {
        watch();
        EXPECT_TRUE(watch_->waitForFirstReport(testTimeout));
    }
    const DesktopAppearance& look() const { return watch_->current(); }
    bool becomes(const DesktopAppearance& look) const {
        return platform::MainLoop::shared().runUntil([&] { return watch_->current() == look; }, testTimeout);
    }
    int changes() const { return changes_; }
    platform::DesktopAppearanceMonitor& watched() { return *watch_; }

private:
    int changes_ = 0;
    std::unique_ptr<platform::DesktopAppearanceMonitor> watch_;
};

TEST_F(DesktopAppearanceMonitor, ReportsThePortalsFirstValue) {
    const auto portal = startPortal({"color-scheme=1", "contrast=1", "reduced-motion=1"});
    watchUntilAnswered();
    EXPECT_EQ(look(), (DesktopAppearance{true, true, true, std::nullopt}));
    EXPECT_EQ(changes(), 1);
}

TEST_F(DesktopAppearanceMonitor, DistinguishesLightFromNoPreference) {
    const auto portal = startPortal({"color-scheme=2"});
    watchUntilAnswered();
    EXPECT_EQ(look(), (DesktopAppearance{false, false, false, std::nullopt}));
}

TEST_F(DesktopAppearanceMonitor, ReportsNoPreferenceWhenTheDesktopHasNone) {
    const auto portal = startPortal({"color-scheme=0", "contrast=0", "reduced-motion=0"});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    EXPECT_EQ(changes(), 0);
}

TEST_F(DesktopAppearanceMonitor, TreatsOtherKindsAndNumbersAsNoPreference) {
    const auto portal = startPortal({"accent-color=red", "color-scheme=dark", "contrast=7"});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    setAppearance("color-scheme=3");
    setAppearance("contrast=high");
    setAppearance("reduced-motion=1");
    EXPECT_TRUE(becomes({std::nullopt, false, true, std::nullopt}));
}

TEST_F(DesktopAppearanceMonitor, FollowsEachChange) {
    const auto portal = startPortal({"color-scheme=2"});
    watchUntilAnswered();
    setAppearance("color-scheme=1");
    EXPECT_TRUE(becomes({true, false, false, std::nullopt}));
    setAppearance("contrast=1");
    EXPECT_TRUE(becomes({true, true, false, std::nullopt}));
    setAppearance("color-scheme=0");
    EXPECT_TRUE(becomes({std::nullopt, true, false, std::nullopt}));
    EXPECT_EQ(changes(), 4);
}

TEST_F(DesktopAppearanceMonitor, AsksAgainWhenAnotherPortalAppears) {
    auto portal = startPortal({"color-scheme=1", "contrast=1"});
    watchUntilAnswered();
    portal.reset();
    portal = startPortal({"color-scheme=2"});
    EXPECT_TRUE(becomes({false, false, false, std::nullopt}));
}

TEST_F(DesktopAppearanceMonitor, FindsAPortalThatAppearsLater) {
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    const auto portal = startPortal({"color-scheme=1"});
    EXPECT_TRUE(becomes({true, false, false, std::nullopt}));
}

TEST_F(DesktopAppearanceMonitor, ReportsNoPreferenceWithoutABus) {
    bus.kill();
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    EXPECT_EQ(changes(), 0);
}

TEST_F(DesktopAppearanceMonitor, StartsNoBus) {
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    watchUntilAnswered();
    EXPECT_EQ(runProcess("/bin/ls", {folder() / "run"}).output, "");
}

TEST_F(DesktopAppearanceMonitor, KeepsItsValueWhenTheBusIsLost) {
    const auto portal = startPortal({"color-scheme=1"});
    watchUntilAnswered();
    bus.kill();
    EXPECT_EQ(portal->wait().exitCode, 0);
    platform::MainLoop::shared().process();
    EXPECT_EQ(look(), (DesktopAppearance{true, false, false, std::nullopt}));
}

TEST_F(DesktopAppearanceMonitor, DoesNotWaitForAStoppedBus) {
    const auto portal = startPortal({"color-scheme=1"});
    bus.stop();
    watch();
    EXPECT_FALSE(watched().waitForFirstReport(std::chrono::milliseconds(1)));
    EXPECT_EQ(look(), DesktopAppearance());
    bus.resume();
    EXPECT_TRUE(becomes({true, false, false, std::nullopt}));
    EXPECT_EQ(changes(), 1);
}

/// A desktop whose portal passes GNOME's own settings on.
class GnomeAppearanceMonitor : public DesktopAppearanceMonitor {
protected:
    static constexpr const char* contrast = "org.gnome.desktop.a11y.interface/high-contrast=";
    static constexpr const char* animations = "org.gnome.desktop.interface/enable-animations=";
    static constexpr const char* textScale = "org.gnome.desktop.interface/text-scaling-factor=";

    static std::string with(const char* setting, const char* value) { return setting + std::string(value); }
};

TEST_F(GnomeAppearanceMonitor, ReportsContrastMotionAndTextWhereTheStandardSettingsAreMissing) {
    const auto portal = startPortal(
        {"color-scheme=1", with(contrast, "true"), with(animations, "false"), with(textScale, "1.5")});
    watchUntilAnswered();
    EXPECT_EQ(look(), (DesktopAppearance{true, true, true, 1.5}));
}

TEST_F(GnomeAppearanceMonitor, ReportsNoPreferenceForWhatNobodyHasChosen) {
    const auto portal =
        startPortal({with(contrast, "false"), with(animations, "true"), with(textScale, "1.0")});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    EXPECT_EQ(changes(), 0);
}

TEST_F(GnomeAppearanceMonitor, ReportsTheStandardSettingsFirst) {
    const auto portal =
        startPortal({"contrast=0", "reduced-motion=0", with(contrast, "true"), with(animations, "false")});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    setAppearance("contrast=1");
    EXPECT_TRUE(becomes({std::nullopt, true, false, std::nullopt}));
    setAppearance(with(contrast, "false"));
    setAppearance("reduced-motion=1");
    EXPECT_TRUE(becomes({std::nullopt, true, true, std::nullopt}));
}

TEST_F(GnomeAppearanceMonitor, FollowsEachChange) {
    const auto portal = startPortal({with(contrast, "false"), with(animations, "true")});
    watchUntilAnswered();
    setAppearance(with(contrast, "true"));
    EXPECT_TRUE(becomes({std::nullopt, true, false, std::nullopt}));
    setAppearance(with(animations, "false"));
    EXPECT_TRUE(becomes({std::nullopt, true, true, std::nullopt}));
    setAppearance(with(textScale, "1.25"));
    EXPECT_TRUE(becomes({std::nullopt, true, true, 1.25}));
    setAppearance(with(contrast, "false"));
    EXPECT_TRUE(becomes({std::nullopt, false, true, 1.25}));
}

TEST_F(GnomeAppearanceMonitor, IgnoresOtherKindsAndTextScalesBeyondTheLimits) {
    const auto portal = startPortal({with(contrast, "1"), with(animations, "off"), with(textScale, "0.4")});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    for (const char* value : {"3.5", "nan", "inf", "-1.5", "2", "large"})
        setAppearance(with(textScale, value));
    setAppearance("org.gnome.desktop.interface/high-contrast=true");
    setAppearance("color-scheme=1");
    EXPECT_TRUE(becomes({true, false, false, std::nullopt}));
    EXPECT_EQ(changes(), 1);
}

} // namespace
} // namespace wardlock::test
