// What a user sees of the window on a display, from its appearance on.

#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/TestTimeout.h"
#include "tests/system/display/Display.h"

#include <chrono>
#include <unistd.h>

namespace wardlock::test {

/// A display in memory, whose ground has a colour that the window has not.
class WindowOnDisplay : public BusFixture, public testing::WithParamInterface<const char*> {
protected:
    void SetUp() override {
        if (::access("/usr/bin/Xvfb", X_OK) != 0)
            GTEST_SKIP() << "Xvfb is not installed";
        environment.unset("WAYLAND_DISPLAY");
        environment.set("QT_QUICK_BACKEND", "software");
        server_ = std::make_unique<Process>(
            "/usr/bin/Xvfb",
            std::vector<std::string>{"-displayfd", "1", "-screen", "0", "800x900x24", "-nolisten", "tcp"});
        const auto number = server_->readLine();
        ASSERT_TRUE(number) << "no display";
        name_ = ":" + *number;
        display = std::make_unique<Display>(name_, 0xff00ff);
    }
    void openWindow() {
        ProcessSetup setup;
        setup.environment = {{"DISPLAY", name_}, {"QT_QPA_PLATFORM", "xcb"}};
        window_ = std::make_unique<Process>(programFolder() + "/wardlock-settings",
                                            std::vector<std::string>{GetParam()}, setup);
    }

    std::unique_ptr<Display> display;

private:
    std::string name_;
    std::unique_ptr<Process> server_;
    std::unique_ptr<Process> window_;
};

TEST_P(WindowOnDisplay, NeverAppearsWithoutItsLetters) {
    openWindow();
    const auto deadline = std::chrono::steady_clock::now() + testTimeout;
    Display::Picture first;
    while (first.covered == 0 && std::chrono::steady_clock::now() < deadline)
        first = display->picture();
    EXPECT_GT(first.covered, 0u) << "no window";
    EXPECT_GT(first.colours, 2u) << "an empty window";
}

INSTANTIATE_TEST_SUITE_P(Appearances, WindowOnDisplay, testing::Values("--light", "--dark"),
                         [](const auto& info) { return std::string(info.param + 2); });

} // namespace wardlock::test
