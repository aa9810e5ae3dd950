#pragma once

#include "platform/preferences/PSListController.h"
#include "platform/ui/UIControl.h"
#include "platform/ui/UITableView.h"

#include <set>

namespace wardlock::test {

inline constexpr std::size_t fixtureTableRows = 10'000;

/// A view whose table has ten thousand rows with a switch each, "Row 0" to "Row 9999", keys
/// "row.0" to "row.9999". A cell's tag is how many had been made with it.
class FixtureTable : public platform::UIView,
                     public platform::UITableViewDataSource,
                     public platform::UITableViewDelegate {
public:
    static std::shared_ptr<FixtureTable> initWithFrame(const platform::CGRect& frame);
    explicit FixtureTable(const platform::CGRect& frame) : UIView(frame) {}
    ~FixtureTable() override;

    std::size_t tableViewNumberOfRowsInSection(platform::UITableView&, std::size_t) override {
        return fixtureTableRows;
    }
    std::shared_ptr<platform::UITableViewCell>
    tableViewCellForRowAtIndexPath(platform::UITableView& table, platform::NSIndexPath path) override;
    double tableViewHeightForRowAtIndexPath(platform::UITableView&, platform::NSIndexPath) override {
        return 35;
    }
    void switchChanged(platform::UIControl& sender);

private:
    std::set<std::string> on_;
    std::size_t made_ = 0;
};

class FixtureTableController : public platform::PSListController {
public:
    static const platform::Class& theClass();
    ~FixtureTableController() override;
    std::string navigationTitle() const override { return "Table"; }
    void viewWillAppear(bool animated) override;
};

} // namespace wardlock::test
