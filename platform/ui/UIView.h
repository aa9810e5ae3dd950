#pragma once

#include "platform/base/Geometry.h"
#include "platform/base/Object.h"
#include "platform/ui/AnimationClock.h"

#include <functional>
#include <memory>
#include <vector>

namespace platform {

enum UIViewAutoresizing : unsigned {
    UIViewAutoresizingNone = 0,
    UIViewAutoresizingFlexibleWidth = 2,
    UIViewAutoresizingFlexibleTopMargin = 8,
    UIViewAutoresizingFlexibleHeight = 16,
};

/// A rectangle in a tree of rectangles, without drawing. A superview owns its subviews; a subview has a weak
/// pointer to its superview. The DisplayObserver is notified of changes. Main thread only.
class WARDLOCK_API UIView : public Object {
public:
    UIView() = default;
    explicit UIView(const CGRect& frame) : frame_(frame) {}
    ~UIView() override;

    const CGRect& frame() const { return frame_; }
    void setFrame(const CGRect& frame);
    /// The frame's size at origin (0, 0).
    CGRect bounds() const { return {{}, frame_.size}; }
    CGPoint center() const;
    /// Moves the frame so that its centre is at `center`.
    void setCenter(CGPoint center);

    double alpha() const { return alpha_; }
    /// Inside the block of animateWithDuration the change is shown over the animation's time. alpha() returns
    /// the new value at once, presentationAlpha() the value to show now.
    void setAlpha(double alpha);
    double presentationAlpha() const;

    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    unsigned autoresizingMask() const { return autoresizingMask_; }
    void setAutoresizingMask(unsigned mask) { autoresizingMask_ = mask; }
    long tag() const { return tag_; }
    void setTag(long tag) { tag_ = tag; }

    const std::vector<std::shared_ptr<UIView>>& subviews() const { return subviews_; }
    std::shared_ptr<UIView> superview() const { return superview_.lock(); }
    /// Adds `view` on top of the subviews and removes it from another superview first.
    void addSubview(const std::shared_ptr<UIView>& view);
    void removeFromSuperview();

    /// Ends the typing of text in this view: the typed text is stored, the keyboard closes. Always returns
    /// true: the front end never refuses.
    bool endEditing(bool force);

    /// Runs `animations` now; the changes of alpha it makes are shown over `seconds` on the AnimationClock.
    /// Then calls `completion` with whether the time ran out (always true here: animations are not
    /// cancelled).
    static void animateWithDuration(double seconds, const std::function<void()>& animations,
                                    std::function<void(bool finished)> completion = {});

protected:
    /// Notifies the DisplayObserver that this view looks different now.
    void changed();

private:
    struct Fade {
        double from = 0;
        AnimationClock::Time start{};
        AnimationClock::Time length{};
    };

    CGRect frame_;
    double alpha_ = 1;
    Fade fade_;
    bool hidden_ = false;
    unsigned autoresizingMask_ = UIViewAutoresizingNone;
    long tag_ = 0;
    std::vector<std::shared_ptr<UIView>> subviews_;
    std::weak_ptr<UIView> superview_;
};

} // namespace platform
