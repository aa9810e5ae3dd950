#pragma once

#include "platform/ui/UIImage.h"
#include "platform/ui/UILabel.h"
#include "platform/ui/UIView.h"

#include <memory>
#include <string>

namespace platform {

enum class UITableViewCellStyle : int { Default = 0, Value1 = 1 };
enum class UITableViewCellSelectionStyle : int { None = 0, Default = 3 };

/// One row of a table. It owns its labels and its accessory view, which is a subview of the cell.
class WARDLOCK_API UITableViewCell : public UIView {
public:
    static std::shared_ptr<UITableViewCell> initWithStyle(UITableViewCellStyle style,
                                                          std::string reuseIdentifier);
    ~UITableViewCell() override;

    UITableViewCellStyle style() const { return style_; }
    const std::string& reuseIdentifier() const { return reuseIdentifier_; }
    UITableViewCellSelectionStyle selectionStyle() const { return selectionStyle_; }
    void setSelectionStyle(UITableViewCellSelectionStyle style) { selectionStyle_ = style; }
    UILabel& textLabel() { return *textLabel_; }
    UILabel& detailTextLabel() { return *detailTextLabel_; }
    const std::shared_ptr<UIImage>& image() const { return image_; }
    void setImage(std::shared_ptr<UIImage> image);
    const std::shared_ptr<UIView>& accessoryView() const { return accessoryView_; }
    void setAccessoryView(const std::shared_ptr<UIView>& view);

private:
    UITableViewCell(UITableViewCellStyle style, std::string reuseIdentifier);

    UITableViewCellStyle style_;
    std::string reuseIdentifier_;
    UITableViewCellSelectionStyle selectionStyle_ = UITableViewCellSelectionStyle::Default;
    std::shared_ptr<UILabel> textLabel_ = std::make_shared<UILabel>();
    std::shared_ptr<UILabel> detailTextLabel_ = std::make_shared<UILabel>();
    std::shared_ptr<UIImage> image_;
    std::shared_ptr<UIView> accessoryView_;
};

} // namespace platform
