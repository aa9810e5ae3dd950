#include "platform/services/StopSignals.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <initializer_list>
#include <sys/eventfd.h>
#include <unistd.h>

namespace platform {

namespace {

// A handler instead of a mask and a signalfd: programs that this one starts would inherit the mask.
int stopped = -1;

void handleStopSignal(int) {
    const int error = errno;
    const std::uint64_t one = 1;
    static_cast<void>(!::write(stopped, &one, sizeof one));
    errno = error;
}

void catchSignal(int signal) {
    struct sigaction action = {};
    if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
        return;
    action = {};
    action.sa_handler = handleStopSignal;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(signal, &action, nullptr);
}

} // namespace

int catchStopSignals() {
    if (stopped < 0)
        stopped = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    if (stopped >= 0)
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            catchSignal(signal);
    return stopped;
}

} // namespace platform
