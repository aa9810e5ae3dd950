#include "platform/ui/UIView.h"

#include "platform/ui/AnimationClock.h"
#include "platform/ui/DisplayObserver.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

/// Seconds of the animation whose block is running; 0 outside of one.
double animationSeconds = 0;

} // namespace

UIView::~UIView() = default;

void UIView::setFrame(const CGRect& frame) {
    frame_ = frame;
    changed();
}

CGPoint UIView::center() const {
    return {frame_.origin.x + frame_.size.width / 2, frame_.origin.y + frame_.size.height / 2};
}

void UIView::setCenter(CGPoint center) {
    frame_.origin = {center.x - frame_.size.width / 2, center.y - frame_.size.height / 2};
    changed();
}

void UIView::setAlpha(double alpha) {
    fade_ = animationSeconds > 0
                ? Fade{presentationAlpha(), AnimationClock::current().now(), animationSeconds}
                : Fade{};
    alpha_ = alpha;
    changed();
}

double UIView::presentationAlpha() const {
    if (fade_.seconds <= 0)
        return alpha_;
    const double passed = (AnimationClock::current().now() - fade_.start) / fade_.seconds;
    return fade_.from + (alpha_ - fade_.from) * std::clamp(passed, 0.0, 1.0);
}

void UIView::setHidden(bool hidden) {
    hidden_ = hidden;
    changed();
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
    view->removeFromSuperview();
    subviews_.push_back(view);
    view->superview_ = self(this);
    changed();
}

void UIView::removeFromSuperview() {
    const auto parent = superview_.lock();
    if (!parent)
        return;
    const auto keepAlive = shared_from_this();
    std::erase_if(parent->subviews_, [this](const auto& view) { return view.get() == this; });
    superview_.reset();
    parent->changed();
}

bool UIView::endEditing(bool) {
    DisplayObserver::current().endEditing(*this);
    return true;
}

void UIView::animateWithDuration(double seconds, const std::function<void()>& animations,
                                 std::function<void(bool finished)> completion) {
    const double outer = std::exchange(animationSeconds, seconds);
    animations();
    animationSeconds = outer;
    AnimationClock::current().after(seconds, [completion = std::move(completion)] {
        if (completion)
            completion(true);
    });
}

void UIView::changed() {
    DisplayObserver::current().viewChanged(*this);
}

} // namespace platform
