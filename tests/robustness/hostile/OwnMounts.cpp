#include "tests/robustness/hostile/OwnMounts.h"

#include <cstdio>
#include <fstream>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace wardlock::test {

namespace {

constexpr int cannotMount = 255;

bool leaveMounts() {
    return ::unshare(CLONE_NEWNS) == 0 && ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace

const std::string& OwnMounts::whyNot() {
    static const std::string reason =
        does([] { return 0; }) == 0 ? "" : "this process may have no mounts of its own";
    return reason;
}

int OwnMounts::does(const std::function<int()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        const int result = leaveMounts() ? work() : cannotMount;
        // Failed expectations have been printed into a buffer.
        std::fflush(nullptr);
        ::_exit(result);
    }
    int status = 0;
    const bool ended = child > 0 && ::waitpid(child, &status, 0) == child;
    return ended && WIFEXITED(status) && WEXITSTATUS(status) != cannotMount ? WEXITSTATUS(status) : -1;
}

bool OwnMounts::putInPlace(const std::string& file, const std::string& bytes, const std::string& spare) {
    std::ofstream(spare) << bytes;
    return ::mount(spare.c_str(), file.c_str(), nullptr, MS_BIND, nullptr) == 0;
}

bool OwnMounts::insertDisk(const std::string& folder, unsigned user, unsigned group, unsigned mode) {
    char options[64];
    std::snprintf(options, sizeof options, "mode=%o,uid=%u,gid=%u", mode, user, group);
    return ::mount("disk", folder.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, options) == 0;
}

} // namespace wardlock::test
