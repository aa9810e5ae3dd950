#pragma once

#include "platform/ui/UIViewController.h"

#include <memory>
#include <vector>

namespace platform {

/// The stack of pages. An animated push or pop takes transitionSeconds() on the AnimationClock; the pages'
/// viewDidAppear and viewDidDisappear come at its end. A push or pop during a transition first ends that
/// transition.
class WARDLOCK_API UINavigationController : public UIViewController {
public:
    static std::shared_ptr<UINavigationController>
    initWithRootViewController(const std::shared_ptr<UIViewController>& root);
    ~UINavigationController() override;

    const std::vector<std::shared_ptr<UIViewController>>& viewControllers() const { return stack_; }
    std::shared_ptr<UIViewController> topViewController() const;
    void pushViewController(const std::shared_ptr<UIViewController>& controller, bool animated);
    /// Returns the removed page, or null when only the root is left. The page lives until the transition has
    /// ended.
    std::shared_ptr<UIViewController> popViewControllerAnimated(bool animated);

    /// Removes every page above `controller` in one pop; only the topmost and `controller` are notified.
    /// Returns the removed pages. No effect, and none returned, when `controller` is not on the stack or is
    /// on top.
    std::vector<std::shared_ptr<UIViewController>> popToViewController(const UIViewController& controller,
                                                                       bool animated);

    /// Returns whether a push or pop is being shown.
    bool isInTransition() const { return transition_ != nullptr; }
    /// Ends the running transition now.
    void finishTransition();
    double transitionSeconds() const { return transitionSeconds_; }
    /// 0: transitions end within the push or pop itself.
    void setTransitionSeconds(double seconds) { transitionSeconds_ = seconds; }

private:
    struct Transition {
        std::shared_ptr<UIViewController> from;
        std::shared_ptr<UIViewController> to;
        bool animated;
    };

    void run(const std::shared_ptr<UIViewController>& from, const std::shared_ptr<UIViewController>& to,
             bool animated);

    std::vector<std::shared_ptr<UIViewController>> stack_;
    std::shared_ptr<Transition> transition_;
    double transitionSeconds_ = 0;
};

} // namespace platform
