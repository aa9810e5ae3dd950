#include "platform/ui/UITextField.h"

#include "platform/runtime/NSNotificationCenter.h"

namespace platform {

UITextField::~UITextField() = default;

void UITextField::setText(std::string text) {
    text_ = std::move(text);
    changed();
}

void UITextField::setPlaceholder(std::string placeholder) {
    placeholder_ = std::move(placeholder);
    changed();
}

void UITextField::edit(std::string text) {
    setText(std::move(text));
    NSNotificationCenter::defaultCenter().postNotification(UITextFieldTextDidChangeNotification,
                                                           shared_from_this());
}

} // namespace platform
