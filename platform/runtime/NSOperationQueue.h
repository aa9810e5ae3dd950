#pragma once

#include "platform/base/Export.h"

#include <functional>
#include <memory>

namespace platform {

/// The serial queue of the main thread. The host's loop drains it (MainLoop::process()).
class WARDLOCK_API NSOperationQueue {
public:
    static NSOperationQueue& mainQueue();

    /// From any thread; tasks run on the main thread in the order in which they were added.
    void addOperation(std::function<void()> operation);
    /// Main thread: runs the tasks that are queued now; those that they add wait for the next call.
    void drain();
    /// From any thread: whether no task waits.
    bool empty() const;
    /// Whether the caller is the thread on which the platform library was loaded.
    static bool isMainThread();

private:
    struct State;

    NSOperationQueue();
    ~NSOperationQueue();

    std::unique_ptr<State> state_;
};

} // namespace platform
