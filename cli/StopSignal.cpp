#include "cli/StopSignal.h"

#include <cerrno>
#include <csignal>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

namespace {

sigset_t stopSignals() {
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGINT);
    sigaddset(&set, SIGTERM);
    return set;
}

} // namespace

StopSignal::StopSignal() {
    const sigset_t set = stopSignals();
    descriptor_ = signalfd(-1, &set, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ < 0)
        throw std::system_error(errno, std::generic_category(), "signalfd");
    sigprocmask(SIG_BLOCK, &set, nullptr);
}

StopSignal::~StopSignal() {
    // Taken before they are let through again, or the one that ended the loop would end the process too.
    signalfd_siginfo ignored;
    while (read(descriptor_, &ignored, sizeof ignored) > 0) {
    }
    close(descriptor_);
    const sigset_t set = stopSignals();
    sigprocmask(SIG_UNBLOCK, &set, nullptr);
}

} // namespace wardlock::cli
