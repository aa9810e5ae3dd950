#include "settings/Keys.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/ParameterNames.h"
#include "tests/support/Process.h"
#include "tests/support/doubles/FaultyFileSystem.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <csignal>

namespace wardlock::test {

/// The window over a disk that becomes full.
class WindowUnsavedChanges : public WindowFixture {
protected:
    WindowUnsavedChanges() { platform::FileSystem::setCurrent(&files_); }
    ~WindowUnsavedChanges() override {
        clearDisk();
        quit();
        platform::FileSystem::setCurrent(nullptr);
    }
    void fillDisk() { files_.fillDiskFrom(files_.calls() + 1); }
    void clearDisk() { files_.fillDiskFrom(std::size_t(-1)); }
    std::string notice() { return scene().shows("notice") ? scene().text("notice") : ""; }
    bool isOn(const char* name) { return scene().item(name)->property("on").toBool(); }

    static constexpr const char* noSpace = "Your change could not be saved: no space left on device.";

private:
    FaultyFileSystem files_{platform::FileSystem::current()};
};

TEST_F(WindowUnsavedChanges, AreReportedInANoticeAndTheSwitchGoesBack) {
    openWardlock();
    ASSERT_TRUE(isOn("switch:Enabled"));
    fillDisk();
    scene().tap("switch:Enabled");
    scene().item("notice");
    EXPECT_EQ(notice(), noSpace);
    EXPECT_TRUE(isOn("switch:Enabled"));
    scene().tap("notice:ok");
    scene().expectGone("notice");
    clearDisk();
    scene().tap("switch:Enabled");
    EXPECT_TRUE(until([&] { return !isOn("switch:Enabled"); }));
    EXPECT_EQ(notice(), "");
}

TEST_F(WindowUnsavedChanges, SetASwitchOfThePickerBack) {
    installApplication("com.example.one", "One");
    openAccount();
    scene().tap("row:Apps");
    scene().item("cell:com.example.one");
    ASSERT_FALSE(isOn("switch:com.example.one"));
    fillDisk();
    scene().tap("switch:com.example.one");
    scene().item("notice");
    EXPECT_FALSE(isOn("switch:com.example.one"));
}

TEST_F(WindowUnsavedChanges, KeepTheWindowOpenOnceOverTypedText) {
    openAccount();
    scene().tap("field:Account Name");
    scene().type("X");
    fillDisk();
    EXPECT_FALSE(window().close());
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(notice(), noSpace);
    EXPECT_EQ(scene().text("field:Account Name"), "Default");
    EXPECT_TRUE(window().close());
}

/// Signals that ask the process to end, sent to the process of the test itself.
class WindowStopSignals : public WindowUnsavedChanges, public ::testing::WithParamInterface<int> {
protected:
    void typeX() {
        openAccount();
        host().endOnSignals();
        scene().tap("field:Account Name");
        scene().type("X");
    }
};

TEST_P(WindowStopSignals, StoreTypedText) {
    typeX();
    EXPECT_EQ(accountNames(), std::vector<std::string>{"Default"});
    ASSERT_EQ(std::raise(GetParam()), 0);
    EXPECT_TRUE(until([&] { return accountNames() == std::vector<std::string>{"DefaultX"}; }));
}

INSTANTIATE_TEST_SUITE_P(All, WindowStopSignals, ::testing::Values(SIGINT, SIGTERM, SIGHUP), signalName);

/// The program itself.
class WindowProgramSignals : public BusFixture, public ::testing::WithParamInterface<int> {};

TEST_P(WindowProgramSignals, EndItAsClosingDoes) {
    ProcessSetup setup;
    setup.environment = {{"QT_QPA_PLATFORM", "offscreen"}};
    Process settings(programFolder() + "/wardlock-settings", {}, setup);
    EXPECT_TRUE(until([&] { return exists(documentPath); }));
    settings.send(GetParam());
    const auto result = settings.wait();
    EXPECT_EQ(result.signal, 0);
    EXPECT_EQ(result.exitCode, 0) << result.errors;
}

INSTANTIATE_TEST_SUITE_P(All, WindowProgramSignals, ::testing::Values(SIGINT, SIGTERM, SIGHUP), signalName);

} // namespace wardlock::test
