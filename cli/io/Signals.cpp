#include "cli/io/Signals.h"

#include <cerrno>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace wardlock::cli {

Signals::Signals(std::initializer_list<int> signals) {
    sigemptyset(&set_);
    for (const int signal : signals)
        sigaddset(&set_, signal);
    descriptor_ = signalfd(-1, &set_, SFD_CLOEXEC | SFD_NONBLOCK);
    if (descriptor_ < 0)
        throw std::system_error(errno, std::generic_category(), "signalfd");
    pthread_sigmask(SIG_BLOCK, &set_, &before_);
}

Signals::~Signals() {
    // Taken before they are unblocked, or the signal that ended the loop would end the process too.
    take();
    close(descriptor_);
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
}

void Signals::take() const {
    signalfd_siginfo taken;
    while (read(descriptor_, &taken, sizeof taken) > 0) {
    }
}

void Signals::obey(int signal) const {
    take();
    raise(signal);
    pthread_sigmask(SIG_UNBLOCK, &set_, nullptr);
    pthread_sigmask(SIG_BLOCK, &set_, nullptr);
}

} // namespace wardlock::cli
