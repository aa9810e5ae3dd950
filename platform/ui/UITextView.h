#pragma once

#include "platform/ui/UIView.h"

#include <string>

namespace platform {

struct UIFont {
    /// In points.
    double size = 17;

    static UIFont systemFontOfSize(double size) { return {size}; }
};

/// Several lines of text that scroll.
class WARDLOCK_API UITextView : public UIView {
public:
    using UIView::UIView;
    ~UITextView() override;

    const std::string& text() const { return text_; }
    void setText(std::string text);
    bool isEditable() const { return editable_; }
    void setEditable(bool editable);
    bool isSelectable() const { return selectable_; }
    void setSelectable(bool selectable);
    UIFont font() const { return font_; }
    void setFont(UIFont font);

private:
    std::string text_;
    bool editable_ = true;
    bool selectable_ = true;
    UIFont font_;
};

} // namespace platform
