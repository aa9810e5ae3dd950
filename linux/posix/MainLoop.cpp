#include "platform/runtime/MainLoop.h"

#include "linux/posix/LoopSources.h"
#include "platform/runtime/NSOperationQueue.h"

#include <algorithm>
#include <cerrno>
#include <poll.h>

namespace platform {

namespace {

/// Keeps the descriptor readable while operations wait at the end of the turn, whether it ends normally or by
/// an exception.
class OperationsLeft {
public:
    OperationsLeft() = default;
    OperationsLeft(const OperationsLeft&) = delete;
    OperationsLeft& operator=(const OperationsLeft&) = delete;
    ~OperationsLeft() {
        if (!NSOperationQueue::mainQueue().empty())
            posix::LoopSources::shared().wakeUp();
    }
};

/// Waits until the descriptor is readable or the timeout has passed, rounded up to a millisecond.
void waitForReading(int descriptor, std::chrono::steady_clock::duration timeout) {
    const auto milliseconds = std::chrono::ceil<std::chrono::milliseconds>(timeout).count();
    constexpr std::int64_t longest = 60'000;
    pollfd watched{descriptor, POLLIN, 0};
    poll(&watched, 1, static_cast<int>(std::clamp<std::int64_t>(milliseconds, 0, longest)));
}

} // namespace

MainLoop::MainLoop() = default;

MainLoop& MainLoop::shared() {
    // Never destroyed, as the queue that wakes it.
    static auto* loop = new MainLoop;
    return *loop;
}

int MainLoop::descriptor() const {
    return posix::LoopSources::shared().descriptor();
}

void MainLoop::wakeUp() {
    posix::LoopSources::shared().wakeUp();
}

void MainLoop::process() {
    const OperationsLeft operationsLeft;
    posix::LoopSources::shared().clearWakeUp();
    NSOperationQueue::mainQueue().drain();
    posix::LoopSources::shared().process();
}

bool MainLoop::runUntil(const std::function<bool()>& done, std::chrono::milliseconds timeout) {
    const auto deadline = std::chrono::steady_clock::now() + timeout;
    while (true) {
        process();
        if (done())
            return true;
        const auto now = std::chrono::steady_clock::now();
        if (now >= deadline)
            return false;
        waitForReading(descriptor(), deadline - now);
    }
}

} // namespace platform
