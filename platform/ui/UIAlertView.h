#pragma once

#include "platform/base/Object.h"

#include <memory>
#include <string>
#include <vector>

namespace platform {

/// The platform's older alert. Pages build it but never show it, so it has no function to show it.
class WARDLOCK_API UIAlertView : public Object {
public:
    static std::shared_ptr<UIAlertView> initWithTitle(std::string title, std::string message,
                                                      std::weak_ptr<Object> delegate,
                                                      std::string cancelButtonTitle,
                                                      std::vector<std::string> otherButtonTitles);
    ~UIAlertView() override;

    const std::string& title() const { return title_; }
    const std::string& message() const { return message_; }
    const std::string& cancelButtonTitle() const { return cancelButtonTitle_; }
    const std::vector<std::string>& otherButtonTitles() const { return otherButtonTitles_; }

private:
    UIAlertView() = default;

    std::string title_;
    std::string message_;
    std::weak_ptr<Object> delegate_;
    std::string cancelButtonTitle_;
    std::vector<std::string> otherButtonTitles_;
};

} // namespace platform
