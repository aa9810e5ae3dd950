#include "platform/services/RunningProgram.h"

#include "tests/support/BuildPaths.h"
#include "tests/support/BusDaemons.h"
#include "tests/support/BusFixture.h"

#include <filesystem>

namespace wardlock::test {

/// Programs of which one runs for each device root, each a process.
class RunningProgram : public BusFixture {
protected:
    static std::unique_ptr<Process> start(const std::string& token = {}, const ProcessSetup& setup = {}) {
        return std::make_unique<Process>(
            programFolder() + "/test-running-program",
            token.empty() ? std::vector<std::string>() : std::vector<std::string>{token}, setup);
    }
    std::string anotherRoot() const {
        const std::string other = folder() / "other";
        std::filesystem::create_directory(other);
        return other;
    }
};

TEST_F(RunningProgram, IsRaisedByALaterStart) {
    const auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    const auto second = start();
    EXPECT_EQ(second->readLine(), "raised another");
    EXPECT_EQ(second->wait().exitCode, 0);
    EXPECT_EQ(first->readLine(), "raised ");
}

TEST_F(RunningProgram, ReceivesTheDesktopsTokenOfALaterStart) {
    const auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    EXPECT_EQ(start("token of the desktop")->readLine(), "raised another");
    EXPECT_EQ(first->readLine(), "raised token of the desktop");
}

TEST_F(RunningProgram, IsTheSameWhereAnotherPathLeadsToTheDeviceRoot) {
    const auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    const std::string path = folder() / "link";
    std::filesystem::create_directory_symlink(root(), path);
    EXPECT_EQ(start({}, with("WARDLOCK_DEVICE_ROOT", path))->readLine(), "raised another");
}

TEST_F(RunningProgram, RunsBesideThatOfAnotherDeviceRoot) {
    const auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    EXPECT_EQ(start({}, with("WARDLOCK_DEVICE_ROOT", anotherRoot()))->readLine(), "running");
}

TEST_F(RunningProgram, RunsAgainAfterTheFirstHasEnded) {
    auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    first.reset();
    // The bus may hear of the end a moment after the next start.
    for (auto line = start()->readLine(); line != "running"; line = start()->readLine())
        ASSERT_EQ(line, "alone");
}

TEST_F(RunningProgram, RunsAloneWithoutABus) {
    const auto setup = with("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + (folder() / "no-bus"));
    EXPECT_EQ(start({}, setup)->readLine(), "alone");
}

TEST_F(RunningProgram, FindsTheFirstOnThePrivateBus) {
    environment.unset("DBUS_SESSION_BUS_ADDRESS");
    const auto first = start();
    EXPECT_EQ(first->readLine(), "running");
    EXPECT_EQ(start()->readLine(), "raised another");
    for (const int daemon : busDaemonsOf(folder() / "run/wardlock-bus"))
        endBusDaemon(daemon);
}

} // namespace wardlock::test
