#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/screen/PageBoundary.h"

#include <memory>

namespace wardlock::shell {

/// A face's clock as the pages see it: what waits on it enters them through the boundary.
class BoundaryClock : public platform::AnimationClock {
public:
    BoundaryClock(platform::AnimationClock& clock, PageBoundary& boundary)
        : clock_(clock), boundary_(boundary) {}

    Time now() override { return clock_.now(); }
    void after(Time delay, std::function<void()> action) override;

private:
    platform::AnimationClock& clock_;
    PageBoundary& boundary_;
    /// Gone with this object, so that a clock which outlives the application runs nothing of it.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace wardlock::shell
