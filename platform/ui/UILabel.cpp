#include "platform/ui/UILabel.h"

namespace platform {

UILabel::~UILabel() = default;

void UILabel::setText(std::string_view text) {
    text_ = text;
    changed();
}

} // namespace platform
