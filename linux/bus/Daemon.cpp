#include "linux/bus/Daemon.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace platform::bus {

namespace {

using Clock = std::chrono::steady_clock;

/// What the new process starts with: no descriptors but three on /dev/null, no blocked or ignored signals, a
/// session of its own.
class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&actions_);
        for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&actions_, descriptor, "/dev/null", O_RDWR, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1);
        posix_spawnattr_init(&attributes_);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes_, &signals);
        sigfillset(&signals);
        posix_spawnattr_setsigdefault(&attributes_, &signals);
        posix_spawnattr_setflags(&attributes_,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    const posix_spawn_file_actions_t* actions() const { return &actions_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

/// True: it has ended; the status is that of a success where a host that ignores its children's ends took it
/// from us.
bool hasEnded(pid_t process, int& status) {
    const pid_t result = waitpid(process, &status, WNOHANG);
    if (result < 0 && errno == ECHILD)
        status = 0;
    return result == process || (result < 0 && errno == ECHILD);
}

} // namespace

bool runDaemon(const std::vector<std::string>& command, std::chrono::milliseconds timeout) {
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (const std::string& word : command)
        arguments.push_back(
            const_cast<char*>(word.c_str())); // what exec's signature asks for; it does not write there
    arguments.push_back(nullptr);
    char* noEnvironment[] = {nullptr};
    const SpawnSettings settings;
    pid_t process = 0;
    if (posix_spawnp(&process, arguments.front(), settings.actions(), settings.attributes(), arguments.data(),
                     noEnvironment) != 0)
        return false;
    const auto deadline = Clock::now() + timeout;
    int status = 0;
    while (!hasEnded(process, status)) {
        if (Clock::now() >= deadline) {
            kill(process, SIGKILL);
            while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
            }
            return false;
        }
        // A child's end wakes no poll, and the signal belongs to the host: look again in a moment.
        poll(nullptr, 0, 2);
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

} // namespace platform::bus
