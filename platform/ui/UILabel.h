#pragma once

#include "platform/ui/UIView.h"

#include <string>
#include <string_view>

namespace platform {

/// A line of text.
class WARDLOCK_API UILabel : public UIView {
public:
    using UIView::UIView;
    ~UILabel() override;

    const std::string& text() const { return text_; }
    void setText(std::string_view text);

private:
    std::string text_;
};

} // namespace platform
