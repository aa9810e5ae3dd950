#include "platform/ui/UITableViewCell.h"

namespace platform {

UITableViewCell::UITableViewCell(UITableViewCellStyle style, std::string reuseIdentifier)
    : style_(style), reuseIdentifier_(std::move(reuseIdentifier)) {}

UITableViewCell::~UITableViewCell() = default;

std::shared_ptr<UITableViewCell> UITableViewCell::initWithStyle(UITableViewCellStyle style,
                                                                std::string reuseIdentifier) {
    std::shared_ptr<UITableViewCell> cell(new UITableViewCell(style, std::move(reuseIdentifier)));
    cell->addSubview(cell->textLabel_);
    cell->addSubview(cell->detailTextLabel_);
    return cell;
}

void UITableViewCell::setImage(std::shared_ptr<UIImage> image) {
    image_ = std::move(image);
    changed();
}

void UITableViewCell::setAccessoryView(const std::shared_ptr<UIView>& view) {
    if (accessoryView_)
        accessoryView_->removeFromSuperview();
    accessoryView_ = view;
    if (view)
        addSubview(view);
}

} // namespace platform
