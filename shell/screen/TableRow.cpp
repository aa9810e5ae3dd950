#include "shell/screen/TableRow.h"

namespace wardlock::shell {

std::string TableRow::detail() const {
    return cell_->detailTextLabel().isHidden() ? std::string() : cell_->detailTextLabel().text();
}

std::shared_ptr<platform::UISwitch> TableRow::switchControl() const {
    return std::dynamic_pointer_cast<platform::UISwitch>(cell_->accessoryView());
}

bool TableRow::isOn() const {
    const auto control = switchControl();
    return control && control->isOn();
}

} // namespace wardlock::shell
