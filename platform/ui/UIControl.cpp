#include "platform/ui/UIControl.h"

namespace platform {

UIControl::~UIControl() = default;

void UIControl::addTarget(const std::shared_ptr<Object>& target, Action action, unsigned events) {
    registrations_.push_back({target, action, events});
}

void UIControl::sendActionsForControlEvents(unsigned events) {
    const auto keepAlive = shared_from_this();
    const auto snapshot = registrations_;
    for (const Registration& registration : snapshot)
        if (registration.events & events)
            if (const auto target = registration.target.lock())
                registration.action(*target, *this);
}

} // namespace platform
