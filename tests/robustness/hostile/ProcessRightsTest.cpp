// What a process of Wardlock leaves behind when it crashes, and whose rights it runs with.

#include "platform/services/ProcessStart.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/robustness/hostile/Sanitizers.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/Process.h"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// A process without a limit on core dumps, in a folder of its own, that has already printed
/// "Watching".
class CoreDump : public HostileFixture {
protected:
    CoreDump() { fs::create_directory(where()); }

    std::string where() const { return folder() / "crash"; }
    std::unique_ptr<Process> start(const std::string& script) const {
        auto process = std::make_unique<Process>(
            "/bin/sh",
            std::vector<std::string>{"-c", "ulimit -c unlimited; cd '" + where() + "'; " + script});
        EXPECT_TRUE(process->waitForError("Watching"));
        return process;
    }
    static std::string watching() { return "exec '" + programFolder() + "/wardlock' watch"; }
    /// Whether it leaves something when it crashes.
    bool leavesSomething(const std::string& script) const {
        const auto process = start(script);
        process->send(SIGABRT);
        EXPECT_EQ(process->wait().signal, SIGABRT);
        return !fs::is_empty(where());
    }
};

TEST_F(CoreDump, IsNotKeptOfWardlock) {
    if (hasAddressSanitizer || hasThreadSanitizer)
        GTEST_SKIP() << "the sanitizers keep no core dumps themselves";
    EXPECT_FALSE(leavesSomething(watching()));
    if (!leavesSomething("echo Watching >&2; exec tail -f /dev/null"))
        GTEST_SKIP() << "this machine keeps the core dump of no process in its folder";
}

TEST_F(CoreDump, IsRefusedToCollectorsByTheLimit) {
    const auto process = start(watching());
    std::ifstream limits("/proc/" + std::to_string(process->id()) + "/limits");
    std::string line;
    while (std::getline(limits, line) && !line.starts_with("Max core file size"))
        continue;
    std::istringstream words(
        line.substr(std::min(line.size(), std::string_view("Max core file size").size())));
    std::string soft;
    std::string hard;
    words >> soft >> hard;
    EXPECT_EQ(soft, "1") << line;
    EXPECT_EQ(hard, "unlimited") << "the user can still raise it";
}

/// Ends as a program that was started with other effective rights than its real ones.
[[noreturn]] void prepareAs(uid_t real, uid_t effective, gid_t realGroup, gid_t effectiveGroup) {
    const bool became =
        ::setresgid(realGroup, effectiveGroup, realGroup) == 0 && ::setresuid(real, effective, real) == 0;
    if (became)
        platform::prepareProcess();
    ::_exit(became ? 0 : 2);
}

constexpr const char* refused = "does not run set-user-id or set-group-id";

TEST(SetUserId, EndsAProgramBeforeItDoesAnything) {
    SKIP_WITHOUT_OTHER_USER();
    const unsigned other = OtherUser::id();
    EXPECT_EXIT(prepareAs(other, 0, other, other), testing::ExitedWithCode(1), refused);
    EXPECT_EXIT(prepareAs(0, other, 0, 0), testing::ExitedWithCode(1), refused);
}

TEST(SetUserId, EndsAProgramWithAnEffectiveGroup) {
    SKIP_WITHOUT_OTHER_USER();
    EXPECT_EXIT(prepareAs(0, 0, OtherUser::group(), 0), testing::ExitedWithCode(1), refused);
}

TEST(SetUserId, LeavesRootAndAnOrdinaryUserRunning) {
    SKIP_WITHOUT_OTHER_USER();
    const unsigned other = OtherUser::id();
    EXPECT_EXIT(prepareAs(0, 0, 0, 0), testing::ExitedWithCode(0), "");
    EXPECT_EXIT(prepareAs(other, other, other, other), testing::ExitedWithCode(0), "");
}

} // namespace
} // namespace wardlock::test
