#include "shell/TerminationHook.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"
#include "tests/unit/window/WindowFixture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

namespace wardlock::test {

using WindowHostMessages = WindowFixture;

TEST_F(WindowHostMessages, ShowWhyABundleDoesNotOpen) {
    const std::string bundle = "/Library/PreferenceBundles/Broken.bundle";
    writeFile(bundle + "/Info.plist",
              "<plist version=\"1.0\"><dict><key>CFBundleExecutable</key><string>Broken</string>"
              "<key>NSPrincipalClass</key><string>Nothing</string></dict></plist>");
    writeFile(bundle + "/Broken", "no module");
    ::chmod(onDisk(bundle + "/Broken").c_str(), 0700);
    open();
    scene().tap("row:Broken");
    scene().item("alert");
    EXPECT_TRUE(scene().showsText("Cannot Open Broken"));
    scene().press(Qt::Key_Escape);
    scene().expectGone("alert");
    EXPECT_EQ(scene().text("title"), "Settings");
}

TEST_F(WindowHostMessages, ShowProblemsOfTheDeviceRootAndOpenTheWindow) {
    writeFile("/../blocked", "a file where the device root should be");
    environment.set("WARDLOCK_DEVICE_ROOT", folder() / "blocked");
    const auto problems = open();
    ASSERT_FALSE(problems.empty());
    scene().item("notice");
    EXPECT_TRUE(scene().shows("page:Settings"));
    scene().tap("notice:ok");
    scene().expectGone("notice");
}

TEST_F(WindowHostMessages, PrintThatNoWindowCanBeOpened) {
    const auto result =
        runProcess(programFolder() + "/wardlock-settings", {}, with("QT_QPA_PLATFORM", "absent"));
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_NE(result.errors.find("cannot open a window"), std::string::npos) << result.errors;
    EXPECT_NE(result.errors.find("wardlock settings --terminal"), std::string::npos) << result.errors;
}

TEST_F(WindowHostMessages, ReportAPageThatThrowsBeforeTheProcessEnds) {
    // The report is the uncaught-exception handler's, which the bundle of this build installs.
    EXPECT_EXIT(
        {
            shell::installTerminationHook(nullptr);
            installFixtureBundle();
            open();
            scene().tap("row:Wardlock");
            scene().item("row:Passcode");
            scene().press(Qt::Key_Escape);
            scene().tap("row:Fixture");
            scene().item("row:Flavour");
            scene().reveal("row:Fail");
            scene().tap("row:Fail");
            std::_Exit(0);
        },
        ::testing::KilledBySignal(SIGABRT), "");
    EXPECT_NE(readFile(logPath).find("the fixture fails when asked to"), std::string::npos);
}

} // namespace wardlock::test
