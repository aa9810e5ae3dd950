#include "platform/services/DesktopLook.h"

#include "platform/runtime/MainLoop.h"
#include "tests/support/BusFixture.h"
#include "tests/support/Patience.h"
#include "tests/support/Places.h"

namespace wardlock::test {
namespace {

using platform::DesktopLook;

class DesktopLookTest : public BusFixture {
protected:
    static std::unique_ptr<Process> startPortal(const std::vector<std::string>& values) {
        auto portal = std::make_unique<Process>(programFolder() + "/test-settings-portal", values);
        EXPECT_EQ(portal->readLine(), "ready");
        return portal;
    }
    static void tell(const std::string& value) {
        EXPECT_EQ(runProcess(programFolder() + "/test-settings-portal", {"--tell", value}).exitCode, 0);
    }
    void watch() {
        watch_ = platform::watchDesktopLook([this] { ++changes_; });
    }
    void watchUntilAnswered() {
        watch();
        EXPECT_TRUE(watch_->waitForAnswer(patience));
    }
    const DesktopLook& look() const { return watch_->look(); }
    bool becomes(const DesktopLook& look) const {
        return platform::MainLoop::shared().runUntil([&] { return watch_->look() == look; }, patience);
    }
    int changes() const { return changes_; }
    platform::DesktopLookWatch& watched() { return *watch_; }

private:
    int changes_ = 0;
    std::unique_ptr<platform::DesktopLookWatch> watch_;
};

TEST_F(DesktopLookTest, IsWhatThePortalSaysAtFirst) {
    const auto portal = startPortal({"color-scheme=1", "contrast=1", "reduced-motion=1"});
    watchUntilAnswered();
    EXPECT_EQ(look(), (DesktopLook{true, true, true}));
    EXPECT_EQ(changes(), 1);
}

TEST_F(DesktopLookTest, KnowsLightFromNoPreference) {
    const auto portal = startPortal({"color-scheme=2"});
    watchUntilAnswered();
    EXPECT_EQ(look(), (DesktopLook{false, false, false}));
}

TEST_F(DesktopLookTest, HasNoPreferenceWhereTheDesktopHasNone) {
    const auto portal = startPortal({"color-scheme=0", "contrast=0", "reduced-motion=0"});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopLook());
    EXPECT_EQ(changes(), 0);
}

TEST_F(DesktopLookTest, TakesOtherKindsAndNumbersForNoPreference) {
    const auto portal = startPortal({"accent-color=red", "color-scheme=dark", "contrast=7"});
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopLook());
    tell("color-scheme=3");
    tell("contrast=high");
    tell("reduced-motion=1");
    EXPECT_TRUE(becomes({std::nullopt, false, true}));
}

TEST_F(DesktopLookTest, FollowsEachChange) {
    const auto portal = startPortal({"color-scheme=2"});
    watchUntilAnswered();
    tell("color-scheme=1");
    EXPECT_TRUE(becomes({true, false, false}));
    tell("contrast=1");
    EXPECT_TRUE(becomes({true, true, false}));
    tell("color-scheme=0");
    EXPECT_TRUE(becomes({std::nullopt, true, false}));
    EXPECT_EQ(changes(), 4);
}

TEST_F(DesktopLookTest, IsAskedForAnewWhenAnotherPortalComes) {
    auto portal = startPortal({"color-scheme=1", "contrast=1"});
    watchUntilAnswered();
    portal.reset();
    portal = startPortal({"color-scheme=2"});
    EXPECT_TRUE(becomes({false, false, false}));
}

TEST_F(DesktopLookTest, IsFoundWhenThePortalComesLater) {
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopLook());
    const auto portal = startPortal({"color-scheme=1"});
    EXPECT_TRUE(becomes({true, false, false}));
}

TEST_F(DesktopLookTest, IsNoPreferenceWithoutABus) {
    bus.kill();
    watchUntilAnswered();
    EXPECT_EQ(look(), DesktopLook());
    EXPECT_EQ(changes(), 0);
}

TEST_F(DesktopLookTest, StartsNoBusToAskOn) {
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    watchUntilAnswered();
    EXPECT_EQ(runProcess("/bin/ls", {folder() / "run"}).output, "");
}

TEST_F(DesktopLookTest, StaysWhenTheBusIsLost) {
    const auto portal = startPortal({"color-scheme=1"});
    watchUntilAnswered();
    bus.kill();
    EXPECT_EQ(portal->wait().exitCode, 0);
    platform::MainLoop::shared().process();
    EXPECT_EQ(look(), (DesktopLook{true, false, false}));
}

TEST_F(DesktopLookTest, IsNotWaitedForWhenTheBusStandsStill) {
    const auto portal = startPortal({"color-scheme=1"});
    bus.stop();
    watch();
    EXPECT_FALSE(watched().waitForAnswer(std::chrono::milliseconds(1)));
    EXPECT_EQ(look(), DesktopLook());
    bus.resume();
    EXPECT_TRUE(becomes({true, false, false}));
    EXPECT_EQ(changes(), 1);
}

} // namespace
} // namespace wardlock::test
