#include "platform/ui/UILabel.h"

namespace platform {

UILabel::~UILabel() = default;

void UILabel::setText(std::string text) {
    text_ = std::move(text);
    changed();
}

} // namespace platform
