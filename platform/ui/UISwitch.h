#pragma once

#include "platform/ui/UIControl.h"

namespace platform {

/// An on/off switch, which notifies its targets when a person has changed it.
class WARDLOCK_API UISwitch : public UIControl {
public:
    using UIControl::UIControl;
    ~UISwitch() override;

    bool isOn() const { return on_; }
    /// Sends no event.
    void setOn(bool on, bool animated);
    /// Performs a tap: the other state, then the value-changed event.
    void toggle();

private:
    bool on_ = false;
};

} // namespace platform
