#pragma once

#include "platform/base/Object.h"
#include "platform/values/Selector.h"

#include <memory>

namespace platform {

enum class UIBarButtonSystemItem : int { Done = 0, Cancel = 1, Edit = 2, Save = 3, Add = 4 };

/// A button of the navigation bar. Its target is not retained.
class WARDLOCK_API UIBarButtonItem : public Object {
public:
    using Action = Selector<void(UIBarButtonItem& sender)>;

    UIBarButtonItem(UIBarButtonSystemItem item, std::weak_ptr<Object> target, Action action)
        : item_(item), target_(std::move(target)), action_(action) {}
    ~UIBarButtonItem() override;

    UIBarButtonSystemItem systemItem() const { return item_; }
    Action action() const { return action_; }
    /// Performs a tap; no effect when the target is gone.
    void press();

private:
    UIBarButtonSystemItem item_;
    std::weak_ptr<Object> target_;
    Action action_;
};

} // namespace platform
