#include "cli/command/ChangeProgram.h"

#include "cli/io/CommandError.h"
#include "cli/io/Output.h"

#include <array>
#include <cerrno>
#include <poll.h>
#include <spawn.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace wardlock::cli {

namespace {

[[noreturn]] void fail(int error) {
    throw CommandError(ExitCode::Failed, "cannot run the command: " + std::generic_category().message(error));
}

/// The line as a file without a name, from its beginning: a command that does not read it does not block this
/// process, as a pipe would.
class InputFile {
public:
    explicit InputFile(const std::string& text) : descriptor_(memfd_create("change", MFD_CLOEXEC)) {
        if (descriptor_ < 0 ||
            write(descriptor_, text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
            lseek(descriptor_, 0, SEEK_SET) != 0)
            fail(errno);
    }
    ~InputFile() { close(descriptor_); }
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

std::vector<char*> environmentWith(std::string& variable) {
    const std::string_view name = std::string_view(variable).substr(0, variable.find('=') + 1);
    std::vector<char*> all;
    for (char** entry = environ; *entry; ++entry)
        if (!std::string_view(*entry).starts_with(name))
            all.push_back(*entry);
    all.push_back(variable.data());
    all.push_back(nullptr);
    return all;
}

/// Starts the shell, with the signals as a new process expects them: this one blocks and ignores some.
pid_t start(std::string command, const std::string& key, int input) {
    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
    posix_spawn_file_actions_init(&files);
    posix_spawnattr_init(&attributes);
    posix_spawn_file_actions_adddup2(&files, input, STDIN_FILENO);
    sigset_t none;
    sigset_t pipe;
    sigemptyset(&none);
    sigemptyset(&pipe);
    sigaddset(&pipe, SIGPIPE);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &pipe);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    std::string shell = "sh";
    std::string option = "-c";
    std::array<char*, 4> words{shell.data(), option.data(), command.data(), nullptr};
    std::string variable = "WARDLOCK_KEY=" + key;
    const std::vector<char*> environment = environmentWith(variable);
    pid_t process = -1;
    const int error = posix_spawn(&process, "/bin/sh", &files, &attributes, words.data(), environment.data());
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&files);
    if (error != 0)
        fail(error);
    return process;
}

/// Returns whether the process has ended before a signal has arrived.
bool waitForEnd(pid_t process, const Signals& stop) {
    const int ended = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    std::array<pollfd, 2> waits{pollfd{ended, POLLIN, 0}, pollfd{stop.descriptor(), POLLIN, 0}};
    while (poll(waits.data(), waits.size(), -1) < 0 && errno == EINTR) {
    }
    close(ended);
    return waits[0].revents != 0;
}

} // namespace

bool runForChange(const std::string& command, const std::string& key, const std::string& json,
                  const Signals& stop) {
    // The command and this process write to the same output.
    Output::flush();
    const InputFile input(json + '\n');
    const pid_t process = start(command, key, input.descriptor());
    if (!waitForEnd(process, stop)) {
        kill(process, SIGTERM);
        return false;
    }
    int result = 0;
    waitpid(process, &result, 0);
    if (WIFEXITED(result) && WEXITSTATUS(result) != 0)
        Output::error("wardlock watch: the command ended with exit code " +
                      std::to_string(WEXITSTATUS(result)));
    else if (WIFSIGNALED(result))
        Output::error("wardlock watch: the command was ended by signal " + std::to_string(WTERMSIG(result)));
    return true;
}

} // namespace wardlock::cli
