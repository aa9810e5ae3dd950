#include "platform/ui/UITextView.h"

namespace platform {

UITextView::~UITextView() = default;

void UITextView::setText(std::string text) {
    text_ = std::move(text);
    changed();
}

void UITextView::setEditable(bool editable) {
    editable_ = editable;
    changed();
}

void UITextView::setSelectable(bool selectable) {
    selectable_ = selectable;
    changed();
}

void UITextView::setFont(UIFont font) {
    font_ = font;
    changed();
}

} // namespace platform
