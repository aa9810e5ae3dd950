#include "linux/posix/FileDescriptor.h"
#include "linux/web/DesktopURLOpener.h"
#include "platform/base/Diagnostics.h"
#include "tests/support/BlockedSignal.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/TestTimeout.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <functional>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;

/// A desktop that knows one scheme, "known".
class SystemURLOpener : public DeviceRootFixture {
protected:
    SystemURLOpener() {
        fs::create_directory(folder() / "bin");
        environment.set("PATH", folder() / "bin" + ":/usr/bin:/bin");
        environment.set("DISPLAY", ":99");
        installProgram("xdg-mime", "[ \"$3\" = x-scheme-handler/known ] && echo handler.desktop");
        installProgram("xdg-open", "printf '%s' \"$1\" >'" + folder() / "opened" + "'");
    }
    void installProgram(const std::string& name, const std::string& script) const {
        const std::string path = folder() / "bin" + '/' + name;
        std::ofstream(path) << "#!/bin/sh\n" << script << '\n';
        fs::permissions(path, fs::perms::owner_all);
    }
    /// With all the time that a handler needs, which the end of the opener waits for.
    static bool open(std::string_view url) {
        return platform::web::DesktopURLOpener(testTimeout).openURL(url);
    }
    /// True when it does within the testTimeout; for events without a descriptor.
    static bool happens(const std::function<bool()>& done) {
        const auto deadline = std::chrono::steady_clock::now() + testTimeout;
        while (!done() && std::chrono::steady_clock::now() < deadline)
            poll(nullptr, 0, 5);
        return done();
    }
    static bool endsInTime(pid_t child) {
        siginfo_t info{};
        return happens([&] {
            return waitid(P_PID, static_cast<id_t>(child), &info, WEXITED | WNOHANG | WNOWAIT) == 0 &&
                   info.si_pid == child;
        });
    }
    /// From now on this process is as one on a system without pidfd_open.
    static bool refuseProcessHandles() {
        std::array filter{
            sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
            sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_pidfd_open, 0, 1),
            sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | ENOSYS),
            sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
        };
        const sock_fprog program{filter.size(), filter.data()};
        return prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
               prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
    }
    std::string opened() const {
        std::ifstream file(folder() / "opened");
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(SystemURLOpener, OpensASchemeWithAHandler) {
    EXPECT_TRUE(open("known://user?screen_name=$(id);'\"`"));
    EXPECT_EQ(opened(), "known://user?screen_name=$(id);'\"`") << "no shell has read it";
}

TEST_F(SystemURLOpener, KnowsSchemesInAnyCase) {
    EXPECT_TRUE(open("KNOWN:x"));
}

TEST_F(SystemURLOpener, LeavesOtherSchemesAlone) {
    open("twitter://user");
    EXPECT_EQ(opened(), "");
}

TEST_F(SystemURLOpener, RefusesTextThatIsNotAUrl) {
    for (const char* text : {"", "known", ":x", "/etc/passwd", "--help", "-x:y", "1known:x", "known: x",
                             "known:\n", "known:\x7F", "known:\xC3\xBC"})
        EXPECT_FALSE(open(text)) << text;
    EXPECT_EQ(opened(), "");
}

TEST_F(SystemURLOpener, NeedsADisplay) {
    environment.unset("DISPLAY");
    environment.unset("WAYLAND_DISPLAY");
    EXPECT_FALSE(open("known:x"));
}

TEST_F(SystemURLOpener, LogsThatOpeningFailed) {
    static std::string logged;
    platform::setDiagnosticsHandler([](std::string_view text) { logged += text; });
    installProgram("xdg-open", "exit 4");
    open("known:x");
    platform::setDiagnosticsHandler(nullptr);
    EXPECT_EQ(logged, "The program for \"known\" addresses could not be started.");
}

TEST_F(SystemURLOpener, DoesNotWaitForADesktopThatIsSlow) {
    const std::string pipe = folder() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    installProgram("xdg-mime", "read line <'" + pipe + "'; echo handler.desktop");
    {
        platform::web::DesktopURLOpener opener(testTimeout);
        ASSERT_TRUE(opener.openURL("known:x")) << "it has waited until the query was given up";
        EXPECT_EQ(opened(), "");
        std::ofstream(pipe) << "line\n";
    }
    EXPECT_EQ(opened(), "known:x") << "it has not waited at its end";
}

TEST_F(SystemURLOpener, RemembersThatThereIsAHandler) {
    open("known:x");
    installProgram("xdg-mime", "exit 1");
    open("known:y");
    EXPECT_EQ(opened(), "known:y");
}

TEST_F(SystemURLOpener, FindsAHandlerThatWasInstalledMeanwhile) {
    open("new:x");
    installProgram("xdg-mime", "echo handler.desktop");
    open("new:x");
    EXPECT_EQ(opened(), "new:x");
}

TEST_F(SystemURLOpener, DoesNotWaitForAHandlerThatStays) {
    // One that reads a pipe until this test closes its other end.
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const platform::posix::FileDescriptor reading(ends[0]);
    const platform::posix::FileDescriptor writing(ends[1]);
    ASSERT_EQ(fcntl(writing.get(), F_SETFD, FD_CLOEXEC), 0);
    installProgram("xdg-open", "exec /bin/cat /proc/" + std::to_string(getpid()) + "/fd/" +
                                   std::to_string(reading.get()));
    EXPECT_TRUE(platform::web::DesktopURLOpener(std::chrono::milliseconds(100)).openURL("known:x"));
}

TEST_F(SystemURLOpener, GivesAHandlerNoneOfTheHostsDescriptors) {
    const std::string hostFile = folder() / "host-file";
    const platform::posix::FileDescriptor left(::open(hostFile.c_str(), O_RDWR | O_CREAT, 0600));
    ASSERT_TRUE(left) << "without close-on-exec";
    installProgram("xdg-open", "/bin/ls -l /proc/self/fd >'" + folder() / "opened" + "'");
    ASSERT_TRUE(open("known:x"));
    EXPECT_NE(opened().find("/dev/null"), std::string::npos);
    EXPECT_EQ(opened().find(hostFile), std::string::npos) << opened();
}

TEST_F(SystemURLOpener, DoesNotWaitWhereTheSystemHasNoHandlesOfProcesses) {
    const std::string pipe = folder() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    installProgram("xdg-open", "read line <'" + pipe + "'; exit 7");
    const pid_t child = fork();
    if (child == 0) {
        const bool opened =
            refuseProcessHandles() &&
            platform::web::DesktopURLOpener(std::chrono::milliseconds(100)).openURL("known:x");
        _exit(opened ? 0 : 1);
    }
    int status = -1;
    // A process that waits for the handler waits for this.
    EXPECT_TRUE(endsInTime(child));
    std::ofstream(pipe) << "line\n";
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
}

TEST_F(SystemURLOpener, OpensForAHostThatIgnoresTheEndsOfItsChildren) {
    std::signal(SIGCHLD, SIG_IGN);
    EXPECT_TRUE(open("known:x"));
    std::signal(SIGCHLD, SIG_DFL);
    EXPECT_EQ(opened(), "known:x");
}

TEST_F(SystemURLOpener, LeavesNoDeadHandlerBehindWhateverSignalsTheHostGets) {
    const std::string pipe = folder() / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    installProgram("xdg-open", "echo $$ >'" + folder() / "process" + "'; read line <'" + pipe + "'");
    EXPECT_TRUE(platform::web::DesktopURLOpener(std::chrono::milliseconds(100)).openURL("known:x"));
    // The thread that waits for the handler's end is there by now: it takes no signal of the host.
    BlockedSignal signal;
    signal.block();
    signal.send();
    std::ofstream(pipe) << "line\n";
    pid_t process = 0;
    std::ifstream(folder() / "process") >> process;
    ASSERT_GT(process, 0);
    EXPECT_TRUE(happens([process] { return kill(process, 0) != 0 && errno == ESRCH; }));
    EXPECT_TRUE(signal.isPending());
}

TEST_F(SystemURLOpener, OpensNothingWithoutADesktop) {
    fs::remove(folder() / "bin" + "/xdg-mime");
    environment.set("PATH", folder() / "bin");
    open("known:x");
    EXPECT_EQ(opened(), "");
}

} // namespace
} // namespace wardlock::test
