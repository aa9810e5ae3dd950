#pragma once

#include "platform/ui/UIView.h"

namespace platform {

/// The view over everything else; its subviews are above the pages.
class WARDLOCK_API UIWindow : public UIView {
public:
    using UIView::UIView;
    ~UIWindow() override;
};

} // namespace platform
