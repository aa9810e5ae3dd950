#pragma once

#include "platform/ui/AnimationClock.h"
#include "shell/screen/PageBoundary.h"

#include <memory>

namespace wardlock::shell {

/// A front end's clock as the pages see it: an action that waits on it enters them through the boundary.
class BoundaryClock : public platform::AnimationClock {
public:
    BoundaryClock(platform::AnimationClock& clock, PageBoundary& boundary)
        : clock_(clock), boundary_(boundary) {}

    Time now() override { return clock_.now(); }
    void after(Time delay, std::function<void()> action) override;

private:
    platform::AnimationClock& clock_;
    PageBoundary& boundary_;
    /// Expires with this object, so that a clock which outlives the application runs none of its actions.
    std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

} // namespace wardlock::shell
