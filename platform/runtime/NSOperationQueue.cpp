#include "platform/runtime/NSOperationQueue.h"

#include "platform/runtime/MainLoop.h"

#include <cstdint>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace platform {

namespace {

const std::thread::id loadingThread = std::this_thread::get_id();

} // namespace

struct NSOperationQueue::State {
    std::mutex mutex;
    std::deque<std::function<void()>> operations;
    /// The number of operations taken so far: the position of the first queued one in the sequence of all.
    std::uint64_t taken = 0;
};

NSOperationQueue::NSOperationQueue() : state_(std::make_unique<State>()) {}

NSOperationQueue::~NSOperationQueue() = default;

NSOperationQueue& NSOperationQueue::mainQueue() {
    // Never destroyed: threads that outlive main may still add operations.
    static auto* queue = new NSOperationQueue;
    return *queue;
}

void NSOperationQueue::addOperation(std::function<void()> operation) {
    if (!operation)
        return;
    {
        const std::lock_guard lock(state_->mutex);
        state_->operations.push_back(std::move(operation));
    }
    MainLoop::shared().wakeUp();
}

void NSOperationQueue::drain() {
    std::unique_lock lock(state_->mutex);
    const std::uint64_t end = state_->taken + state_->operations.size();
    // One at a time: what is queued after an operation that throws stays queued for the termination hook.
    while (state_->taken < end) {
        const auto operation = std::move(state_->operations.front());
        state_->operations.pop_front();
        ++state_->taken;
        lock.unlock();
        operation();
        lock.lock();
    }
}

bool NSOperationQueue::empty() const {
    const std::lock_guard lock(state_->mutex);
    return state_->operations.empty();
}

bool NSOperationQueue::isMainThread() {
    return std::this_thread::get_id() == loadingThread;
}

} // namespace platform
