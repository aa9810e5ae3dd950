#include "platform/services/RunningProgram.h"

#include "tests/support/BuildPaths.h"
#include "tests/support/BusDaemons.h"
#include "tests/support/BusFixture.h"

#include <csignal>
#include <cstdio>
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

/// The name by which the desktop starts a program.
class RunningProgramOfDesktop : public RunningProgram {
protected:
    ~RunningProgramOfDesktop() override {
        // One that the bus has started outlives the bus.
        const auto process = callBus("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                     "org.freedesktop.DBus.GetConnectionUnixProcessID", name);
        int id = 0;
        if (std::sscanf(process.output.c_str(), "(uint32 %d,)", &id) == 1)
            ::kill(id, SIGKILL);
    }
    static ProcessResult callBus(const std::string& destination, const std::string& object,
                                 const std::string& method, const std::string& argument) {
        return runProcess(programPath("gdbus"), {"call", "--session", "--dest", destination, "--object-path",
                                                 object, "--method", method, argument});
    }
    static bool isNamed() {
        const auto result = callBus("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                    "org.freedesktop.DBus.NameHasOwner", name);
        EXPECT_EQ(result.exitCode, 0) << result.errors;
        return result.output == "(true,)\n";
    }
    void offer(const std::string& deviceRoot) const {
        bus.offer(name, programFolder() + "/test-running-program", {"--activated"},
                  {{"DBUS_SESSION_BUS_ADDRESS", bus.address()}, {"WARDLOCK_DEVICE_ROOT", deviceRoot}});
    }
    static void activate(const std::string& data = "{}") {
        const auto result =
            callBus(name, "/com/tavix/wardlock/Test", "org.freedesktop.Application.Activate", data);
        EXPECT_EQ(result.output, "()\n") << result.errors;
    }

    static constexpr const char* name = "com.tavix.wardlock.Test";
};

TEST_F(RunningProgramOfDesktop, IsThatOfTheDefaultRoot) {
    ProcessSetup setup;
    setup.environment["WARDLOCK_DEVICE_ROOT"] = std::nullopt;
    const auto first = start({}, setup);
    ASSERT_EQ(first->readLine(), "running");
    EXPECT_TRUE(isNamed());
    activate();
    EXPECT_EQ(first->readLine(), "raised ");
}

TEST_F(RunningProgramOfDesktop, IsNotThatOfAnotherRoot) {
    const auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    EXPECT_FALSE(isNamed());
}

TEST_F(RunningProgramOfDesktop, IsStartedByTheBusAndFoundByALaterStart) {
    offer(root());
    activate();
    EXPECT_TRUE(isNamed());
    activate();
    EXPECT_EQ(start()->readLine(), "raised another");
}

TEST_F(RunningProgramOfDesktop, PassesACallOnToTheOneThatRunsForTheSameRoot) {
    const auto first = start();
    ASSERT_EQ(first->readLine(), "running");
    offer(root());
    activate("{'activation-token': <'token of the desktop'>}");
    EXPECT_EQ(first->readLine(), "raised token of the desktop");
    // And again, since the process that the bus starts has ended.
    activate();
    EXPECT_EQ(first->readLine(), "raised ");
}

} // namespace wardlock::test
