#pragma once

#include "bench/Timing.h"

#include <QQuickWindow>

#include <functional>
#include <vector>

namespace wardlock::bench {

/// Measures from a moment until the frame that shows its effect is painted. Ends the process when no frame
/// comes.
class FrameWatch {
public:
    explicit FrameWatch(QQuickWindow& window) : window_(window) {}

    /// Waits until no more frames are requested.
    void settle();
    /// Starts a measurement; a second call leaves out what came before it.
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
