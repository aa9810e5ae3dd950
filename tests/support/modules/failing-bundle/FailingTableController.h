#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/ui/UIControl.h"
#include "platform/ui/UITableView.h"

namespace wardlock::test {

/// A view whose table has three rows with a switch each; the switches and the reading come to a failAt().
class FailingTable : public platform::UIView,
                     public platform::UITableViewDataSource,
                     public platform::UITableViewDelegate {
public:
    static std::shared_ptr<FailingTable> initWithFrame(const platform::CGRect& frame);
    explicit FailingTable(const platform::CGRect& frame) : UIView(frame) {}
    ~FailingTable() override;

    std::size_t numberOfSectionsInTableView(platform::UITableView& table) override;
    std::size_t tableViewNumberOfRowsInSection(platform::UITableView& table, std::size_t section) override;
    std::shared_ptr<platform::UITableViewCell>
    tableViewCellForRowAtIndexPath(platform::UITableView& table, platform::NSIndexPath path) override;
    double tableViewHeightForRowAtIndexPath(platform::UITableView& table,
                                            platform::NSIndexPath path) override;
    void switchChanged(platform::UIControl& sender);
};

class FailingTableController : public platform::PSListController {
public:
    static const platform::Class& theClass();
    ~FailingTableController() override;
    std::string navigationTitle() const override { return "Table"; }
    void viewWillAppear(bool animated) override;
};

} // namespace wardlock::test
