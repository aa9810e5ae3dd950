#pragma once

#include "bench/Timing.h"

#include <QQuickWindow>

#include <functional>
#include <vector>

namespace wardlock::bench {

/// Times what a window shows: from a moment until the frame that shows it is painted. Ends the process when
/// no frame comes.
class FrameWatch {
public:
    explicit FrameWatch(QQuickWindow& window) : window_(window) {}

    /// Until nothing asks for frames any more.
    void settle();
    /// Starts a measurement; again, to leave out what came before.
    void start();
    /// Waits for the next frame and adds the time to `samples`.
    void finish(Samples& samples);

    /// Scrolls the list by some points a frame, from its top, and reports the 95th percentile of the frames.
    void measureScrolling(const Row& row);

private:
    void waitForFrame();

    QQuickWindow& window_;
    std::uint64_t wallStart_ = 0;
    std::uint64_t processorStart_ = 0;
};

} // namespace wardlock::bench
