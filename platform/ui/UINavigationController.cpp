#include "platform/ui/UINavigationController.h"

#include "platform/ui/AnimationClock.h"

#include <algorithm>
#include <utility>

namespace platform {

UINavigationController::~UINavigationController() = default;

std::shared_ptr<UINavigationController>
UINavigationController::initWithRootViewController(const std::shared_ptr<UIViewController>& root) {
    auto controller = std::make_shared<UINavigationController>();
    controller->pushViewController(root, false);
    return controller;
}

std::shared_ptr<UIViewController> UINavigationController::topViewController() const {
    return stack_.empty() ? nullptr : stack_.back();
}

void UINavigationController::pushViewController(const std::shared_ptr<UIViewController>& controller,
                                                bool animated) {
    finishTransition();
    const auto from = topViewController();
    stack_.push_back(controller);
    controller->navigationController_ = self(this);
    run(from, controller, animated);
}

std::shared_ptr<UIViewController> UINavigationController::popViewControllerAnimated(bool animated) {
    // A page that appears may pop itself, or another one.
    finishTransition();
    if (stack_.size() < 2)
        return nullptr;
    auto from = stack_.back();
    stack_.pop_back();
    from->navigationController_.reset();
    run(from, stack_.back(), animated);
    return from;
}

std::vector<std::shared_ptr<UIViewController>>
UINavigationController::popToViewController(const UIViewController& controller, bool animated) {
    finishTransition();
    const auto isIt = [&controller](const auto& page) { return page.get() == &controller; };
    const auto found = std::ranges::find_if(stack_, isIt);
    if (found == stack_.end() || found + 1 == stack_.end())
        return {};
    std::vector<std::shared_ptr<UIViewController>> above(found + 1, stack_.end());
    stack_.erase(found + 1, stack_.end());
    for (const auto& page : above)
        page->navigationController_.reset();
    run(above.back(), stack_.back(), animated);
    return above;
}

void UINavigationController::finishTransition() {
    const auto ended = std::exchange(transition_, nullptr);
    if (!ended)
        return;
    if (ended->from)
        ended->from->viewDidDisappear(ended->animated);
    ended->to->viewDidAppear(ended->animated);
    changed();
}

void UINavigationController::run(const std::shared_ptr<UIViewController>& from,
                                 const std::shared_ptr<UIViewController>& to, bool animated) {
    if (from)
        from->viewWillDisappear(animated);
    to->viewWillAppear(animated);
    transition_ = std::make_shared<Transition>(Transition{from, to, animated});
    changed();
    if (!animated || transitionSeconds_ <= 0) {
        finishTransition();
        return;
    }
    AnimationClock::current().after(AnimationClock::time(transitionSeconds_),
                                    [weak = std::weak_ptr(self(this)), running = std::weak_ptr(transition_)] {
                                        const auto controller = weak.lock();
                                        if (controller && controller->transition_ &&
                                            controller->transition_ == running.lock())
                                            controller->finishTransition();
                                    });
}

} // namespace platform
