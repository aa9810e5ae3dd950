#include "platform/ui/UISwitch.h"

namespace platform {

UISwitch::~UISwitch() = default;

void UISwitch::setOn(bool on, bool) {
    on_ = on;
    changed();
}

void UISwitch::toggle() {
    setOn(!on_, true);
    sendActionsForControlEvents(UIControlEventValueChanged);
}

} // namespace platform
