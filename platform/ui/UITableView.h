#pragma once

#include "platform/ui/NSIndexPath.h"
#include "platform/ui/UITableViewCell.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

class UITableView;

enum class UITableViewStyle : int { Plain = 0, Grouped = 1 };

class WARDLOCK_API UITableViewDataSource {
public:
    virtual ~UITableViewDataSource();
    virtual std::size_t numberOfSectionsInTableView(UITableView&) { return 1; }
    virtual std::size_t tableViewNumberOfRowsInSection(UITableView& table, std::size_t section) = 0;
    virtual std::shared_ptr<UITableViewCell> tableViewCellForRowAtIndexPath(UITableView& table,
                                                                            NSIndexPath path) = 0;
};

class WARDLOCK_API UITableViewDelegate {
public:
    virtual ~UITableViewDelegate();
    /// In points.
    virtual double tableViewHeightForRowAtIndexPath(UITableView&, NSIndexPath) { return 44; }
};

/// Rows that a data source provides on demand. Delegate and data source are not retained. The front end takes
/// the cells of the visible rows and returns them for reuse when they are out of sight.
class WARDLOCK_API UITableView : public UIView {
public:
    UITableView(const CGRect& frame, UITableViewStyle style) : UIView(frame), style_(style) {}
    ~UITableView() override;

    UITableViewStyle style() const { return style_; }
    void setDelegate(std::weak_ptr<UITableViewDelegate> delegate) { delegate_ = std::move(delegate); }
    void setDataSource(std::weak_ptr<UITableViewDataSource> source) { dataSource_ = std::move(source); }

    /// Returns a cell that was returned for reuse under `identifier`, or null.
    std::shared_ptr<UITableViewCell> dequeueReusableCellWithIdentifier(std::string_view identifier);

    /// For the front end; without a data source there are no sections.
    std::size_t numberOfSections();
    std::size_t numberOfRowsInSection(std::size_t section);
    double heightForRow(NSIndexPath path);
    /// Returns the row's cell, created or reused by the data source; null without a data source.
    std::shared_ptr<UITableViewCell> takeCell(NSIndexPath path);
    void giveBack(std::shared_ptr<UITableViewCell> cell);

private:
    UITableViewStyle style_;
    std::weak_ptr<UITableViewDelegate> delegate_;
    std::weak_ptr<UITableViewDataSource> dataSource_;
    std::map<std::string, std::vector<std::shared_ptr<UITableViewCell>>, std::less<>> reusable_;
};

} // namespace platform
