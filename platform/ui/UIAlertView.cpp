#include "platform/ui/UIAlertView.h"

namespace platform {

UIAlertView::~UIAlertView() = default;

std::shared_ptr<UIAlertView> UIAlertView::initWithTitle(std::string title, std::string message,
                                                        std::weak_ptr<Object> delegate,
                                                        std::string cancelButtonTitle,
                                                        std::vector<std::string> otherButtonTitles) {
    std::shared_ptr<UIAlertView> alert(new UIAlertView);
    alert->title_ = std::move(title);
    alert->message_ = std::move(message);
    alert->delegate_ = std::move(delegate);
    alert->cancelButtonTitle_ = std::move(cancelButtonTitle);
    alert->otherButtonTitles_ = std::move(otherButtonTitles);
    return alert;
}

} // namespace platform
