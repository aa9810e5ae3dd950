#include "platform/ui/UIViewController.h"

#include "platform/ui/DisplayObserver.h"
#include "platform/ui/UIApplication.h"

#include <utility>

namespace platform {

void UINavigationItem::setTitle(std::string title) {
    title_ = std::move(title);
    owner_.changed();
}

void UINavigationItem::setRightBarButtonItem(std::shared_ptr<UIBarButtonItem> item) {
    rightBarButtonItem_ = std::move(item);
    owner_.changed();
}

UIViewController::UIViewController() : navigationItem_(*this) {}

UIViewController::~UIViewController() = default;

void UIViewController::setTitle(std::string title) {
    title_ = std::move(title);
    changed();
}

const std::shared_ptr<UIView>& UIViewController::view() {
    if (!view_)
        view_ = loadView();
    return view_;
}

void UIViewController::setView(std::shared_ptr<UIView> view) {
    const auto previous = std::exchange(view_, std::move(view));
    changed();
}

std::shared_ptr<UIView> UIViewController::loadView() {
    const auto& window = UIApplication::sharedApplication().keyWindow();
    return std::make_shared<UIView>(window ? window->bounds() : CGRectZero);
}

void UIViewController::presentViewController(const std::shared_ptr<UIViewController>& controller, bool) {
    if (presented_)
        return;
    presented_ = controller;
    controller->presenting_ = self(this);
    changed();
}

void UIViewController::dismissViewControllerAnimated(bool animated) {
    if (!presented_) {
        if (const auto presenter = presenting_.lock())
            presenter->dismissViewControllerAnimated(animated);
        return;
    }
    const auto gone = std::exchange(presented_, nullptr);
    if (gone->presented_)
        gone->dismissViewControllerAnimated(animated);
    gone->presenting_.reset();
    gone->didDismiss();
    changed();
}

void UIViewController::changed() {
    DisplayObserver::current().controllerChanged(*this);
}

} // namespace platform
