#include "tests/support/modules/failing-bundle/FailingTableController.h"

#include "platform/ui/UISwitch.h"
#include "tests/support/modules/failing-bundle/Failure.h"

namespace wardlock::test {

using platform::UITableViewCell;

FailingTable::~FailingTable() = default;
FailingTableController::~FailingTableController() = default;

std::shared_ptr<FailingTable> FailingTable::initWithFrame(const platform::CGRect& frame) {
    const auto view = std::make_shared<FailingTable>(frame);
    const auto table = std::make_shared<platform::UITableView>(frame, platform::UITableViewStyle::Grouped);
    table->setDataSource(view);
    table->setDelegate(view);
    view->addSubview(table);
    return view;
}

std::size_t FailingTable::numberOfSectionsInTableView(platform::UITableView&) {
    failAt("table sections");
    return 1;
}

std::size_t FailingTable::tableViewNumberOfRowsInSection(platform::UITableView&, std::size_t) {
    failAt("table rows");
    return 3;
}

std::shared_ptr<UITableViewCell> FailingTable::tableViewCellForRowAtIndexPath(platform::UITableView&,
                                                                              platform::NSIndexPath path) {
    failAt("table cell");
    auto cell = UITableViewCell::initWithStyle(platform::UITableViewCellStyle::Value1, "cell");
    const auto control = std::make_shared<platform::UISwitch>(platform::CGRectZero);
    control->addTarget(self(this),
                       platform::UIControl::Action::of<&FailingTable::switchChanged>("switchChanged:"),
                       platform::UIControlEventValueChanged);
    cell->setAccessoryView(control);
    cell->textLabel().setText("Row " + std::to_string(path.row));
    cell->detailTextLabel().setText("row." + std::to_string(path.row));
    return cell;
}

double FailingTable::tableViewHeightForRowAtIndexPath(platform::UITableView&, platform::NSIndexPath) {
    failAt("table height");
    return 35;
}

void FailingTable::switchChanged(platform::UIControl&) {
    failAt("table switch");
    changeDocument();
}

const platform::Class& FailingTableController::theClass() {
    static constexpr platform::Class theClass("FailingTableController",
                                              &platform::makeInstance<FailingTableController>);
    return theClass;
}

void FailingTableController::viewWillAppear(bool animated) {
    PSListController::viewWillAppear(animated);
    setView(FailingTable::initWithFrame(view()->frame()));
}

} // namespace wardlock::test
