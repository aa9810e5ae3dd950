#include "platform/ui/UIView.h"

#include "platform/ui/DisplayObserver.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace platform {

namespace {

/// The length of the animation whose block is running; zero outside of one.
AnimationClock::Time animationLength{};

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
    fade_ = animationLength > AnimationClock::Time::zero()
                ? Fade{presentationAlpha(), AnimationClock::current().now(), animationLength}
                : Fade{};
    alpha_ = alpha;
    changed();
}

double UIView::presentationAlpha() const {
    const auto passed = AnimationClock::current().now() - fade_.start;
    if (passed >= fade_.length)
        return alpha_;
    const std::chrono::duration<double> seconds = std::max(passed, AnimationClock::Time::zero());
    return std::lerp(fade_.from, alpha_, seconds / fade_.length);
}

void UIView::setHidden(bool hidden) {
    hidden_ = hidden;
    changed();
}

void UIView::addSubview(const std::shared_ptr<UIView>& view) {
    // The argument may be an element of the list that changes.
    const std::shared_ptr<UIView> added = view;
    added->removeFromSuperview();
    subviews_.push_back(added);
    added->superview_ = self(this);
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
    const auto length = AnimationClock::time(seconds);
    const auto outer = std::exchange(animationLength, length);
    animations();
    animationLength = outer;
    AnimationClock::current().after(length, [completion = std::move(completion)] {
        if (completion)
            completion(true);
    });
}

void UIView::changed() {
    DisplayObserver::current().viewChanged(*this);
}

} // namespace platform
