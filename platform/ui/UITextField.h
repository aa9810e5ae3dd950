#pragma once

#include "platform/ui/UIView.h"

#include <string>

namespace platform {

/// Posted to the default centre with the field as object whenever a person changes its text.
inline constexpr const char* UITextFieldTextDidChangeNotification = "UITextFieldTextDidChangeNotification";

/// A line of text that a person edits.
class WARDLOCK_API UITextField : public UIView {
public:
    using UIView::UIView;
    ~UITextField() override;

    const std::string& text() const { return text_; }
    /// Posts nothing.
    void setText(std::string text);
    const std::string& placeholder() const { return placeholder_; }
    void setPlaceholder(std::string placeholder);
    /// Performs typing: sets the new text, then posts the notification.
    void edit(std::string text);

private:
    std::string text_;
    std::string placeholder_;
};

} // namespace platform
