#include "platform/ui/UIBarButtonItem.h"

namespace platform {

UIBarButtonItem::~UIBarButtonItem() = default;

void UIBarButtonItem::press() {
    const auto keepAlive = shared_from_this();
    if (const auto target = target_.lock())
        action_(*target, *this);
}

} // namespace platform
