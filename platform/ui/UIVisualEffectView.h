#pragma once

#include "platform/ui/UIView.h"

namespace platform {

enum class UIBlurEffectStyle : int { ExtraLight = 0, Light = 1, Dark = 2 };

struct UIBlurEffect {
    UIBlurEffectStyle style;

    static UIBlurEffect effectWithStyle(UIBlurEffectStyle style) { return {style}; }
};

/// Blurs what is beneath it.
class WARDLOCK_API UIVisualEffectView : public UIView {
public:
    explicit UIVisualEffectView(UIBlurEffect effect) : effect_(effect) {}
    ~UIVisualEffectView() override;

    UIBlurEffect effect() const { return effect_; }

private:
    UIBlurEffect effect_;
};

} // namespace platform
