#include "platform/ui/UIActivityIndicatorView.h"

namespace platform {

namespace {

/// The side of the platform's spinners, in points.
constexpr double largeSide = 37;
constexpr double smallSide = 20;

double side(UIActivityIndicatorViewStyle style) {
    return style == UIActivityIndicatorViewStyle::WhiteLarge ? largeSide : smallSide;
}

} // namespace

UIActivityIndicatorView::UIActivityIndicatorView(UIActivityIndicatorViewStyle style)
    : UIView(CGRect{{}, {side(style), side(style)}}), style_(style),
      color_(style == UIActivityIndicatorViewStyle::Gray ? UIColor::Gray : UIColor::White) {}

UIActivityIndicatorView::~UIActivityIndicatorView() = default;

void UIActivityIndicatorView::setColor(UIColor color) {
    color_ = color;
    changed();
}

void UIActivityIndicatorView::startAnimating() {
    animating_ = true;
    changed();
}

void UIActivityIndicatorView::stopAnimating() {
    animating_ = false;
    changed();
}

} // namespace platform
