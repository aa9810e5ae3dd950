// The command that builds Wardlock and opens it, with the programs of this build in place of those it would
// make.

#include "tests/support/BuildPaths.h"
#include "tests/support/BusFixture.h"
#include "tests/support/Process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace wardlock::test {

namespace fs = std::filesystem;

class WindowStart : public BusFixture {
protected:
    WindowStart() : place_(folder() / "checkout") {
        fs::create_directories(place_ / "build/release");
        fs::create_directories(place_ / "tools");
        fs::create_directories(place_ / "commands");
        fs::copy_file(sourceFolder() + "/run", place_ / "run");
        for (const char* tool : {"tools/configure", "tools/progress"})
            fs::copy_file(sourceFolder() + '/' + tool, place_ / tool);
        fs::create_symlink(programFolder(), place_ / "build/release/bin");
        writeCommandThatDoesNothing(place_ / "tools/install-packages");
        writeCommandThatDoesNothing(place_ / "commands/cmake");
    }

    /// Its result without a user at the terminal, with this DISPLAY.
    ProcessResult runWithDisplay(const std::string& display,
                                 const std::vector<std::string>& words = {}) const {
        ProcessSetup setup;
        setup.environment = {{"DISPLAY", display},
                             {"WAYLAND_DISPLAY", std::nullopt},
                             {"QT_QPA_PLATFORM", std::nullopt},
                             {"XDG_RUNTIME_DIR", std::nullopt},
                             {"PATH", (place_ / "commands").string() + ":/usr/bin:/bin"}};
        return runProcess(place_ / "run", words, setup);
    }

private:
    static void writeCommandThatDoesNothing(const fs::path& path) {
        std::ofstream(path) << "#!/bin/sh\n";
        fs::permissions(path, fs::perms::owner_all);
    }

    fs::path place_;
};

TEST_F(WindowStart, ContinuesInTheTerminalWithoutADisplay) {
    const auto result = runWithDisplay(":64123");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
    EXPECT_TRUE(result.errors.starts_with("wardlock-settings: cannot open a window: ")) << result.errors;
    EXPECT_NE(result.output.find("Passcode"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("run `wardlock settings` in a terminal"), std::string::npos)
        << result.output;
}

TEST_F(WindowStart, PrintsNoMessageWithoutANamedDisplay) {
    const auto result = runWithDisplay("");
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_NE(result.output.find("Passcode"), std::string::npos) << result.output;
}

TEST_F(WindowStart, TakesPicturesWithoutAWarningThoughNothingIsSetUpForQt) {
    const std::string pictures = folder() / "pictures";
    const auto result = runWithDisplay("", {"--screenshots", pictures});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.errors, "");
    EXPECT_FALSE(fs::is_empty(pictures));
}

} // namespace wardlock::test
