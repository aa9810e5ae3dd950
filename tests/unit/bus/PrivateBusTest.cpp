#include "platform/runtime/CFNotificationCenter.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusDaemons.h"
#include "tests/support/BusFixture.h"
#include "tests/support/OtherUser.h"

#include <gtest/gtest.h>

#include <chrono>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/stat.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// No bus but the one that the product starts by itself, which a test must end itself.
class PrivateBus : public BusFixture {
protected:
    PrivateBus() { environment.unset("DBUS_SESSION_BUS_ADDRESS"); }
    ~PrivateBus() override {
        for (const int daemon : daemons())
            endBusDaemon(daemon);
    }

    std::string busFolder() const { return folder() / "run/wardlock-bus"; }

    std::vector<int> daemons() const { return busDaemonsOf(busFolder()); }
};

TEST_F(PrivateBus, IsStartedWhenThereIsNoOtherBus) {
    const auto observer = observe({"N"});
    post({"N"});
    EXPECT_EQ(observer->readLine(), "N|-|-");
    EXPECT_EQ(daemons().size(), 1u);
}

TEST_F(PrivateBus, IsOneForAllProcessesThatStartAtOnce) {
    constexpr int count = 6;
    std::vector<std::unique_ptr<Process>> observers;
    for (int i = 0; i < count; ++i)
        observers.push_back(
            std::make_unique<Process>(programFolder() + "/test-observer", std::vector<std::string>{"N"}));
    for (const auto& observer : observers)
        EXPECT_EQ(observer->readLine(), "ready");
    post({"N", "--object", "all"});
    for (const auto& observer : observers)
        EXPECT_EQ(observer->readLine(), "N|all|-");
    EXPECT_EQ(daemons().size(), 1u);
}

TEST_F(PrivateBus, LivesInAFolderThatOnlyTheUserMayEnter) {
    post({"N"});
    struct stat status {};
    ASSERT_EQ(stat(busFolder().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFDIR | S_IRWXU);
    EXPECT_EQ(status.st_uid, geteuid());
}

TEST_F(PrivateBus, OutlivesTheProcessThatStartedIt) {
    post({"N"});
    ASSERT_EQ(daemons().size(), 1u);
    const int daemon = daemons().front();
    const auto observer = observe({"N"});
    EXPECT_EQ(daemons(), std::vector<int>{daemon});
}

TEST_F(PrivateBus, IsDetachedFromTheProcessThatStartedIt) {
    const int leaked = open("/dev/null", O_RDONLY); // without close-on-exec
    post({"N"});
    close(leaked);
    ASSERT_EQ(daemons().size(), 1u);
    const int daemon = daemons().front();
    EXPECT_NE(getsid(daemon), getsid(0));
    for (const auto& entry : fs::directory_iterator("/proc/" + std::to_string(daemon) + "/fd")) {
        std::error_code error;
        const std::string target = fs::read_symlink(entry.path(), error);
        if (error == std::errc::no_such_file_or_directory)
            continue; // the daemon has closed it by now: the poster's connection
        const bool own =
            target.starts_with("socket:") || target.starts_with("anon_inode:") || target.starts_with("pipe:");
        const bool nothing = target == "/dev/null" && std::stoi(entry.path().filename()) <= 2;
        EXPECT_TRUE(own || nothing) << target;
    }
}

TEST_F(PrivateBus, IsStartedAgainWhenItWasKilled) {
    const auto observer = observe({"N"});
    ASSERT_EQ(daemons().size(), 1u);
    endBusDaemon(daemons().front());
    EXPECT_EQ(observer->readLine(), "N|-|-");
    post({"N", "--object", "after"});
    EXPECT_EQ(observer->readLine(), "N|after|-");
    EXPECT_EQ(daemons().size(), 1u);
}

TEST_F(PrivateBus, IsNotStartedWhereABusIsNamedThatIsGone) {
    bus.kill();
    post({"N"}, with("DBUS_SESSION_BUS_ADDRESS", bus.address()));
    EXPECT_FALSE(fs::exists(busFolder()));
}

TEST_F(PrivateBus, IsNotStartedWhereTheUserHasABus) {
    fs::create_symlink(bus.address().substr(std::string("unix:path=").size()), folder() / "run/bus");
    const auto observer = observe({"N"});
    post({"N"});
    EXPECT_EQ(observer->readLine(), "N|-|-");
    EXPECT_FALSE(fs::exists(busFolder()));
}

TEST_F(PrivateBus, IsNotStartedInAFolderThatOthersMayEnter) {
    fs::create_directory(busFolder());
    fs::permissions(busFolder(), fs::perms::all);
    post({"N"});
    EXPECT_TRUE(fs::is_empty(busFolder()));
}

TEST_F(PrivateBus, IsNotStartedBehindASymbolicLink) {
    const TemporaryFolder elsewhere;
    fs::create_directory_symlink(elsewhere.path(), busFolder());
    post({"N"});
    EXPECT_TRUE(fs::is_empty(elsewhere.path()));
}

TEST_F(PrivateBus, IsNotStartedInARuntimeFolderOfAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    const std::string runtime = folder() / "run";
    ASSERT_EQ(chown(runtime.c_str(), 65534, 65534), 0);
    // Without a daemon to start: the folder below /tmp does not belong to a test.
    post({"N"}, with("PATH", "/nonexistent"));
    EXPECT_FALSE(fs::exists(busFolder()));
}

TEST_F(PrivateBus, IsAbsentWithoutADaemon) {
    const ProcessSetup withoutDaemon = with("PATH", "/nonexistent");
    const auto observer = observe({"N"}, withoutDaemon);
    post({"N"}, withoutDaemon);
    EXPECT_TRUE(daemons().empty());
}

TEST_F(PrivateBus, IsNotStartedForEachPostWhereItsStartHangs) {
    const TemporaryFolder programs;
    const std::string starts = programs / "starts";
    std::ofstream(programs / "dbus-daemon")
        << "#!/bin/sh\necho start >>'" << starts << "'\nexec /bin/sleep 1000\n";
    fs::permissions(programs / "dbus-daemon", fs::perms::owner_all);
    environment.set("PATH", programs.path());
    const auto postHere = [] {
        CFNotificationCenterPostNotification(platform::CFNotificationCenterGetDistributedCenter(), "N",
                                             nullptr, nullptr, true);
    };
    postHere();
    // Longer than the pause between the attempts of two posts.
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(100);
    while (std::chrono::steady_clock::now() < end)
        postHere();
    std::ostringstream text;
    text << std::ifstream(starts).rdbuf();
    EXPECT_EQ(text.str(), "start\n");
}

TEST_F(PrivateBus, IsFoundInAFolderWhoseNameNeedsEscaping) {
    const TemporaryFolder odd;
    const std::string runtime = odd / "a b,ü%;='&<";
    fs::create_directory(runtime);
    fs::permissions(runtime, fs::perms::owner_all);
    environment.set("XDG_RUNTIME_DIR", runtime);
    const auto observer = observe({"N"});
    post({"N"});
    EXPECT_EQ(observer->readLine(), "N|-|-");
    for (const int daemon : busDaemonsOf(runtime + "/wardlock-bus"))
        endBusDaemon(daemon);
}

} // namespace
} // namespace wardlock::test
