#include "tests/support/OtherUser.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <grp.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {

namespace {

// The user "nobody" on every Linux.
constexpr unsigned nobody = 65534;
constexpr int cannotBecome = 255;

int opened(const std::string& path, int flags) {
    const int file = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0600);
    const int error = file < 0 ? errno : 0;
    if (file >= 0)
        ::close(file);
    return error;
}

std::string tryToBecome() {
    if (::geteuid() != 0)
        return "only root can act for another user";
    return OtherUser::does([] { return 0; }) == 0 ? "" : "this machine has no user 65534 to act for";
}

} // namespace

const std::string& OtherUser::whyNot() {
    static const std::string reason = tryToBecome();
    return reason;
}

unsigned OtherUser::id() {
    return nobody;
}

unsigned OtherUser::group() {
    return nobody;
}

int OtherUser::does(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const bool became = ::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
        ::_exit(became ? work() : cannotBecome);
    }
    int status = 0;
    const bool ended = child > 0 && ::waitpid(child, &status, 0) == child;
    return ended && WIFEXITED(status) && WEXITSTATUS(status) != cannotBecome ? WEXITSTATUS(status) : -1;
}

int OtherUser::reads(const std::string& path) {
    return does([&] { return opened(path, O_RDONLY); });
}

int OtherUser::lists(const std::string& folder) {
    return does([&] { return opened(folder, O_RDONLY | O_DIRECTORY); });
}

int OtherUser::writes(const std::string& path) {
    return does([&] { return opened(path, O_WRONLY); });
}

int OtherUser::makes(const std::string& path) {
    return does([&] { return opened(path, O_WRONLY | O_CREAT | O_EXCL); });
}

void OtherUser::createLink(const std::string& target, const std::string& path) {
    ASSERT_EQ(::symlink(target.c_str(), path.c_str()), 0) << path;
    ASSERT_EQ(::lchown(path.c_str(), nobody, nobody), 0) << path;
}

void OtherUser::give(const std::string& path) {
    ASSERT_EQ(::chown(path.c_str(), nobody, nobody), 0) << path;
}

} // namespace wardlock::test
