#include "platform/ui/UIAlertController.h"

#include "platform/ui/DisplayObserver.h"

#include <algorithm>
#include <utility>

namespace platform {

UIAlertAction::UIAlertAction(std::string title, UIAlertActionStyle style, Handler handler)
    : title_(std::move(title)), style_(style), handler_(std::move(handler)) {}

UIAlertAction::~UIAlertAction() = default;

std::shared_ptr<UIAlertAction> UIAlertAction::actionWithTitle(std::string title, UIAlertActionStyle style,
                                                              Handler handler) {
    return std::shared_ptr<UIAlertAction>(new UIAlertAction(std::move(title), style, std::move(handler)));
}

void UIAlertAction::setEnabled(bool enabled) {
    enabled_ = enabled;
    if (const auto alert = alert_.lock())
        DisplayObserver::current().controllerChanged(*alert);
}

UIAlertController::UIAlertController(std::string title, std::string message, UIAlertControllerStyle style)
    : message_(std::move(message)), style_(style) {
    setTitle(std::move(title));
}

UIAlertController::~UIAlertController() = default;

std::shared_ptr<UIAlertController>
UIAlertController::alertControllerWithTitle(std::string title, std::string message,
                                            UIAlertControllerStyle preferredStyle) {
    return std::shared_ptr<UIAlertController>(
        new UIAlertController(std::move(title), std::move(message), preferredStyle));
}

void UIAlertController::addTextFieldWithConfigurationHandler(
    const std::function<void(const std::shared_ptr<UITextField>&)>& configure) {
    textFields_.push_back(std::make_shared<UITextField>());
    if (configure)
        configure(textFields_.back());
}

void UIAlertController::addAction(std::shared_ptr<UIAlertAction> action) {
    action->alert_ = self(this);
    actions_.push_back(std::move(action));
}

void UIAlertController::choose(const std::shared_ptr<UIAlertAction>& action) {
    if (!action->isEnabled() || std::find(actions_.begin(), actions_.end(), action) == actions_.end())
        return;
    const auto keepAlive = shared_from_this();
    const auto handler = action->handler_;
    if (presentingViewController())
        dismissViewControllerAnimated(true);
    else
        didDismiss();
    if (handler)
        handler(*action);
}

void UIAlertController::didDismiss() {
    for (const auto& action : actions_)
        action->handler_ = nullptr;
}

} // namespace platform
