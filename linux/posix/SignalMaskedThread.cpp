#include "linux/posix/SignalMaskedThread.h"

#include "platform/runtime/ExceptionBoundary.h"

#include <csignal>
#include <system_error>
#include <utility>

namespace platform::posix {

namespace {

/// Blocks all signals for the calling thread and for the threads that it starts.
class NoSignals {
public:
    NoSignals() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~NoSignals() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;

private:
    sigset_t before_;
};

} // namespace

std::thread startSignalMaskedThread(std::function<void()> work) {
    const NoSignals quiet;
    try {
        return std::thread([work = std::move(work)] { callOrTerminate(work); });
    } catch (const std::system_error&) {
        return {};
    }
}

} // namespace platform::posix
