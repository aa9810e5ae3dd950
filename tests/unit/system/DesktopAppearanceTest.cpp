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
    EXPECT_EQ(look(), (DesktopAppearance{true, true, true}));
    EXPECT_EQ(changes(), 1);
}

TEST_F(DesktopAppearanceMonitor, DistinguishesLightFromNoPreference) {
    const auto portal = startPortal({"color-scheme=2"});
    watchUntilAnswered();
    EXPECT_EQ(look(), (DesktopAppearance{false, false, false}));
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
    EXPECT_TRUE(becomes({std::nullopt, false, true}));
}

TEST_F(DesktopAppearanceMonitor, FollowsEachChange) {
    const auto portal = startPortal({"color-scheme=2"});
    watchUntilAnswered();
    setAppearance("color-scheme=1");
    EXPECT_TRUE(becomes({true, false, false}));
    setAppearance("contrast=1");
    EXPECT_TRUE(becomes({true, true, false}));
    setAppearance("color-scheme=0");
    EXPECT_TRUE(becomes({std::nullopt, true, false}));
    EXPECT_EQ(changes(), 4);
}

TEST_F(DesktopAppearanceMonitor, AsksAgainWhenAnotherPortalAppears) {
    auto portal = startPortal({"color-scheme=1", "contrast=1"});
    watchUntilAnswered();
    portal.reset();
    portal = startPortal({"color-scheme=2"});
    EXPECT_TRUE(becomes({false, false, false}));
}

TEST_F(DesktopAppearanceMonitor, FindsAPortalThatAppearsLater) {
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopAppearance());
    const auto portal = startPortal({"color-scheme=1"});
    EXPECT_TRUE(becomes({true, false, false}));
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
    EXPECT_EQ(look(), (DesktopAppearance{true, false, false}));
}

TEST_F(DesktopAppearanceMonitor, DoesNotWaitForAStoppedBus) {
    const auto portal = startPortal({"color-scheme=1"});
    bus.stop();
    watch();
    EXPECT_FALSE(watched().waitForFirstReport(std::chrono::milliseconds(1)));
    EXPECT_EQ(look(), DesktopAppearance());
    bus.resume();
    EXPECT_TRUE(becomes({true, false, false}));
    EXPECT_EQ(changes(), 1);
}

} // namespace
} // namespace wardlock::test
