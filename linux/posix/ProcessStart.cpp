#include "platform/services/ProcessStart.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <sys/resource.h>
#include <system_error>
#include <unistd.h>

namespace platform {

namespace {

/// All that the user chooses - variables, folders, descriptors - would act with the other user's rights.
void refuseForeignRights() {
    if (::getuid() == ::geteuid() && ::getgid() == ::getegid())
        return;
    constexpr std::string_view reason =
        "This program does not run set-user-id or set-group-id: run it as the user whose settings it uses.\n";
    static_cast<void>(!::write(STDERR_FILENO, reason.data(), reason.size()));
    ::_exit(EXIT_FAILURE);
}

/// The kernel makes no dump below two bytes, neither into a file nor for a program that collects dumps. A
/// limit of 0 does not stop such a program.
void refuseCoreDumps() {
    constexpr rlim_t none = 1;
    rlimit limit{};
    if (::getrlimit(RLIMIT_CORE, &limit) != 0)
        return;
    limit.rlim_cur = std::min(none, limit.rlim_max);
    static_cast<void>(::setrlimit(RLIMIT_CORE, &limit));
}

} // namespace

void prepareProcess() {
    refuseForeignRights();
    refuseCoreDumps();
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        // Opened in the wrong direction on purpose: a write to a closed standard output has to fail, not to
        // vanish.
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
}

bool isSuperuser() {
    return ::geteuid() == 0;
}

void becomeProgramBeside(const std::string& name, const std::vector<std::string>& arguments) {
    std::error_code error;
    const auto self = std::filesystem::canonical("/proc/self/exe", error);
    if (error)
        return;
    std::vector<std::string> words{name};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    ::execv((self.parent_path() / name).c_str(), pointers.data());
}

} // namespace platform
