#pragma once

#include "platform/ui/UITextField.h"
#include "platform/ui/UIViewController.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace platform {

enum class UIAlertControllerStyle : int { ActionSheet = 0, Alert = 1 };
enum class UIAlertActionStyle : int { Default = 0, Cancel = 1, Destructive = 2 };

class UIAlertController;

/// A button of an alert.
class WARDLOCK_API UIAlertAction : public Object {
public:
    using Handler = std::function<void(UIAlertAction&)>;

    static std::shared_ptr<UIAlertAction> actionWithTitle(std::string title, UIAlertActionStyle style,
                                                          Handler handler);
    ~UIAlertAction() override;

    const std::string& title() const { return title_; }
    UIAlertActionStyle style() const { return style_; }
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);

private:
    friend class UIAlertController;
    UIAlertAction(std::string title, UIAlertActionStyle style, Handler handler);

    std::string title_;
    UIAlertActionStyle style_;
    Handler handler_;
    bool enabled_ = true;
    std::weak_ptr<UIAlertController> alert_;
};

/// A question over the page: a title, a message, text fields and buttons. A page presents it; a tap on a
/// button dismisses it, then runs that button's handler. The dismissal drops all handlers, so that it
/// releases what they keep alive.
class WARDLOCK_API UIAlertController : public UIViewController {
public:
    static std::shared_ptr<UIAlertController> alertControllerWithTitle(std::string title, std::string message,
                                                                       UIAlertControllerStyle preferredStyle);
    ~UIAlertController() override;

    const std::string& message() const { return message_; }
    UIAlertControllerStyle preferredStyle() const { return style_; }
    const std::vector<std::shared_ptr<UITextField>>& textFields() const { return textFields_; }
    const std::vector<std::shared_ptr<UIAlertAction>>& actions() const { return actions_; }

    void addTextFieldWithConfigurationHandler(
        const std::function<void(const std::shared_ptr<UITextField>&)>& configure);
    void addAction(std::shared_ptr<UIAlertAction> action);
    /// Performs a tap on a button; no effect when it is disabled or belongs to another alert.
    void choose(const std::shared_ptr<UIAlertAction>& action);

protected:
    void didDismiss() override;

private:
    UIAlertController(std::string title, std::string message, UIAlertControllerStyle style);

    std::string message_;
    UIAlertControllerStyle style_;
    std::vector<std::shared_ptr<UITextField>> textFields_;
    std::vector<std::shared_ptr<UIAlertAction>> actions_;
};

} // namespace platform
