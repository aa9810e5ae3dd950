#include "platform/services/ProcessStart.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
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

} // namespace platform
