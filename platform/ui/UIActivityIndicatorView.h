#pragma once

#include "platform/ui/UIView.h"

namespace platform {

enum class UIActivityIndicatorViewStyle : int { WhiteLarge = 0, White = 1, Gray = 2 };
enum class UIColor : int { White, Black, Gray };

/// A spinner; visible only while it is animating.
class WARDLOCK_API UIActivityIndicatorView : public UIView {
public:
    explicit UIActivityIndicatorView(UIActivityIndicatorViewStyle style);
    ~UIActivityIndicatorView() override;

    UIActivityIndicatorViewStyle style() const { return style_; }
    UIColor color() const { return color_; }
    void setColor(UIColor color);
    bool isAnimating() const { return animating_; }
    void startAnimating();
    void stopAnimating();

private:
    UIActivityIndicatorViewStyle style_;
    UIColor color_ = UIColor::White;
    bool animating_ = false;
};

} // namespace platform
