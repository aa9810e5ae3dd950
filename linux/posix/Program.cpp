#include "linux/posix/Program.h"

#include "linux/posix/FileDescriptor.h"
#include "linux/posix/SignalMaskedThread.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace platform::posix {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::size_t mostOutput = std::size_t(64) * 1024;

enum class Environment { Ours, Empty };

/// The state in which the new process starts:
/// - three descriptors, on /dev/null unless set otherwise, and no others;
/// - no blocked or ignored signals;
/// - a session of its own.
class SpawnSetup {
public:
    explicit SpawnSetup(int output) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        if (output >= 0)
            posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        else
            posix_spawn_file_actions_addopen(&actions_, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
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
    ~SpawnSetup() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;

    std::optional<pid_t> start(const std::vector<std::string>& words, Environment environment) const {
        std::vector<char*> arguments;
        arguments.reserve(words.size() + 1);
        for (const auto& word : words)
            arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        std::array<char*, 1> empty{};
        char** const variables = environment == Environment::Ours ? environ : empty.data();
        pid_t process = 0;
        if (posix_spawnp(&process, arguments[0], &actions_, &attributes_, arguments.data(), variables) != 0)
            return std::nullopt;
        return process;
    }

private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

int exitCodeOf(int status) {
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<std::int64_t>(left, 0, 60'000));
}

/// Reads until the other end is closed; returns false when the deadline passes first.
bool readAll(int descriptor, Clock::time_point deadline, std::string& output) {
    std::array<char, 4096> room{};
    while (true) {
        pollfd watched{descriptor, POLLIN, 0};
        const int ready = poll(&watched, 1, millisecondsUntil(deadline));
        if (ready < 0 && errno == EINTR)
            continue;
        if (ready <= 0)
            return false;
        const ssize_t count = read(descriptor, room.data(), room.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return true;
        output.append(room.data(), std::min<std::size_t>(static_cast<std::size_t>(count),
                                                         mostOutput - std::min(output.size(), mostOutput)));
    }
}

enum class Wait { No, UntilItsEnd };

/// Returns the exit code of a process that has ended, and reaps it; nothing while it runs. In a host that
/// ignores the ends of its children the status is lost: then the code is that of a success.
std::optional<int> takeExitCode(pid_t process, Wait wait) {
    int status = 0;
    pid_t taken = 0;
    do
        taken = waitpid(process, &status, wait == Wait::No ? WNOHANG : 0);
    while (taken < 0 && errno == EINTR);
    if (taken < 0)
        return 0;
    return taken == process ? std::optional(exitCodeOf(status)) : std::nullopt;
}

/// Waits for the process's end and reaps it; returns nothing when the deadline passes first.
std::optional<int> waitFor(pid_t process, Clock::time_point deadline) {
    constexpr int lookMilliseconds = 5;
    const FileDescriptor handle(static_cast<int>(syscall(SYS_pidfd_open, process, 0)));
    while (true) {
        if (const auto code = takeExitCode(process, Wait::No))
            return code;
        const int left = millisecondsUntil(deadline);
        if (left == 0)
            return std::nullopt;
        // Older systems, and containers that allow only the calls they know, have no process descriptors.
        pollfd watched{handle.get(), POLLIN, 0};
        poll(&watched, 1, handle ? left : std::min(left, lookMilliseconds));
    }
}

/// Ends the processes that it started as well, which may have its output.
void endSession(pid_t process) {
    kill(-process, SIGKILL);
    takeExitCode(process, Wait::UntilItsEnd);
}

} // namespace

std::optional<std::string> findProgram(std::string_view name) {
    const char* path = std::getenv("PATH");
    std::string_view folders = path ? path : "/usr/local/bin:/usr/bin:/bin";
    while (!folders.empty()) {
        const std::size_t end = std::min(folders.find(':'), folders.size());
        std::string candidate = std::string(folders.substr(0, end)) + '/' + std::string(name);
        if (end > 0 && access(candidate.c_str(), X_OK) == 0)
            return candidate;
        folders.remove_prefix(std::min(end + 1, folders.size()));
    }
    return std::nullopt;
}

std::optional<ProgramResult> runProgram(const std::vector<std::string>& words,
                                        std::chrono::milliseconds timeout) {
    const auto deadline = Clock::now() + timeout;
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::nullopt;
    const FileDescriptor reading(ends[0]);
    FileDescriptor writing(ends[1]);
    const auto process = SpawnSetup(writing.get()).start(words, Environment::Ours);
    if (!process)
        return std::nullopt;
    writing.reset();
    ProgramResult result;
    const bool ended = readAll(reading.get(), deadline, result.output);
    if (const auto code = ended ? waitFor(*process, deadline) : std::nullopt) {
        result.exitCode = *code;
        return result;
    }
    endSession(*process);
    return std::nullopt;
}

std::optional<int> startProgram(const std::vector<std::string>& words, std::chrono::milliseconds timeout) {
    const auto process = SpawnSetup(-1).start(words, Environment::Ours);
    if (!process)
        return std::nullopt;
    if (const auto code = waitFor(*process, Clock::now() + timeout))
        return code;
    // A thread has to reap it when it ends.
    std::thread taking =
        startSignalMaskedThread([process = *process] { takeExitCode(process, Wait::UntilItsEnd); });
    if (taking.joinable())
        taking.detach();
    return 0;
}

DaemonStart startDaemon(const std::vector<std::string>& words, std::chrono::milliseconds timeout) {
    const auto process = SpawnSetup(-1).start(words, Environment::Empty);
    if (!process)
        return DaemonStart::Failed;
    if (const auto code = waitFor(*process, Clock::now() + timeout))
        return *code == 0 ? DaemonStart::Succeeded : DaemonStart::Failed;
    endSession(*process);
    return DaemonStart::TimedOut;
}

} // namespace platform::posix
