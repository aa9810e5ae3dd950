#pragma once

#include "platform/ui/UIView.h"
#include "platform/values/Selector.h"

#include <memory>
#include <vector>

namespace platform {

inline constexpr unsigned UIControlEventValueChanged = 4096;

/// A view that a person operates and that notifies its targets. Targets are not retained.
class WARDLOCK_API UIControl : public UIView {
public:
    using Action = Selector<void(UIControl& sender)>;

    using UIView::UIView;
    ~UIControl() override;

    void addTarget(const std::shared_ptr<Object>& target, Action action, unsigned events);
    /// Sends the event to its targets in the order in which they were added.
    void sendActionsForControlEvents(unsigned events);

private:
    struct Registration {
        std::weak_ptr<Object> target;
        Action action;
        unsigned events;
    };

    std::vector<Registration> registrations_;
};

} // namespace platform
