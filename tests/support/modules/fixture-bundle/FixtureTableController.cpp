#include "tests/support/modules/fixture-bundle/FixtureTableController.h"

#include "platform/ui/UISwitch.h"

namespace wardlock::test {

using platform::UITableViewCell;

FixtureTable::~FixtureTable() = default;
FixtureTableController::~FixtureTableController() = default;

std::shared_ptr<FixtureTable> FixtureTable::initWithFrame(const platform::CGRect& frame) {
    const auto view = std::make_shared<FixtureTable>(frame);
    const auto table = std::make_shared<platform::UITableView>(frame, platform::UITableViewStyle::Grouped);
    table->setDataSource(view);
    table->setDelegate(view);
    view->addSubview(table);
    return view;
}

std::shared_ptr<UITableViewCell> FixtureTable::tableViewCellForRowAtIndexPath(platform::UITableView& table,
                                                                              platform::NSIndexPath path) {
    auto cell = table.dequeueReusableCellWithIdentifier("cell");
    if (!cell) {
        cell = UITableViewCell::initWithStyle(platform::UITableViewCellStyle::Value1, "cell");
        cell->setTag(static_cast<long>(++made_));
        const auto control = std::make_shared<platform::UISwitch>(platform::CGRectZero);
        control->addTarget(self(this),
                           platform::UIControl::Action::of<&FixtureTable::switchChanged>("switchChanged:"),
                           platform::UIControlEventValueChanged);
        cell->setAccessoryView(control);
    }
    const std::string key = "row." + std::to_string(path.row);
    cell->textLabel().setText("Row " + std::to_string(path.row));
    cell->detailTextLabel().setText(key);
    cell->detailTextLabel().setHidden(true);
    std::dynamic_pointer_cast<platform::UISwitch>(cell->accessoryView())->setOn(on_.contains(key), false);
    return cell;
}

void FixtureTable::switchChanged(platform::UIControl& sender) {
    const auto cell = std::dynamic_pointer_cast<UITableViewCell>(sender.superview());
    const std::string& key = cell->detailTextLabel().text();
    if (dynamic_cast<platform::UISwitch&>(sender).isOn())
        on_.insert(key);
    else
        on_.erase(key);
}

const platform::Class& FixtureTableController::theClass() {
    static constexpr platform::Class theClass("FixtureTableController",
                                              &platform::makeInstance<FixtureTableController>);
    return theClass;
}

void FixtureTableController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    setView(FixtureTable::initWithFrame(view()->frame()));
}

} // namespace wardlock::test
