#include "platform/services/ProcessStart.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace platform {

void prepareProcess() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
        // Opened the wrong way round on purpose: a write to a closed standard output has to fail, not to
        // vanish.
        if (::fcntl(descriptor, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY));
    }
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
