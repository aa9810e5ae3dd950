#pragma once

#include "../base/Export.h"

#include <functional>
#include <memory>

namespace platform {

/// The serial queue of the main thread. The host's loop drains it (MainLoop::process()).
class WARDLOCK_API NSOperationQueue {
public:
    static NSOperationQueue& mainQueue();

    /// Adds a task; tasks run on the main thread in the order in which they were added. Any thread.
    void addOperation(std::function<void()> operation);
    /// Runs the tasks that are queued now; those that they add wait for the next call. Main thread.
    void drain();
    /// Returns whether the queue is empty. Any thread.
    bool empty() const;
    /// Returns whether the caller is the thread on which the platform library was loaded.
    static bool isMainThread();

private:
    struct State;

    NSOperationQueue();
    ~NSOperationQueue();

    std::unique_ptr<State> state_;
};

} // namespace platform
