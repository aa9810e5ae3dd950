#pragma once

#include "platform/ui/UIControl.h"
#include "platform/ui/UITableView.h"
#include "platform/values/Value.h"
#include "settings/RestrictedApplications.h"

#include <memory>
#include <optional>

namespace wardlock {

/// The installed applications with a switch each: on when the application is restricted for the account at
/// SelectedIndex, from whose page the picker was opened. Every change of a switch is saved at once. Rows keep
/// their places while the view lives; the next view groups the restricted applications first. Main thread
/// only.
class AppsListView : public platform::UIView,
                     public platform::UITableViewDataSource,
                     public platform::UITableViewDelegate {
public:
    /// Reads the account, opens the AppList library and builds model and table. Throws NSRangeException when
    /// SelectedIndex is outside "kAccounts".
    static std::shared_ptr<AppsListView> initWithFrame(const platform::CGRect& frame);
    explicit AppsListView(const platform::CGRect& frame) : UIView(frame) {}
    ~AppsListView() override;

    /// Maps display identifiers to display names, as the AppList library reports them.
    const platform::Dictionary& applications() const { return applications_; }
    void setApplications(platform::Dictionary applications) { applications_ = std::move(applications); }
    /// What is saved; none when the account record has no list.
    const std::optional<RestrictedApplications>& enabled() const { return enabled_; }
    void setEnabled(std::optional<RestrictedApplications> enabled) { enabled_ = std::move(enabled); }
    /// Unused: no code fills or reads it.
    const std::optional<platform::MutableArray>& disabled() const { return disabled_; }
    void setDisabled(std::optional<platform::MutableArray> disabled) { disabled_ = std::move(disabled); }
    /// The rows' identifiers: the restricted applications, then the others offered, each by name.
    const platform::MutableArray& allApps() const { return allApps_; }
    void setAllApps(platform::MutableArray allApps) { allApps_ = std::move(allApps); }
    const std::shared_ptr<platform::UITableView>& tableView() const { return tableView_; }
    void setTableView(std::shared_ptr<platform::UITableView> table) { tableView_ = std::move(table); }

    /// Returns the applications that are never offered.
    platform::Array hiddenDisplayIdentifiers() const;
    /// Builds `applications`, `enabled` and `allApps`.
    void setupArrays();
    void setupTableViewWithFrame(const platform::CGRect& frame);
    /// Writes `enabled` into the account's record and announces the change. Throws
    /// NSInvalidArgumentException, and writes nothing, when there is no list to store.
    void savePreferences();
    void switchChanged(platform::UIControl& sender);

    std::size_t numberOfSectionsInTableView(platform::UITableView& table) override;
    std::size_t tableViewNumberOfRowsInSection(platform::UITableView& table, std::size_t section) override;
    double tableViewHeightForRowAtIndexPath(platform::UITableView& table,
                                            platform::NSIndexPath path) override;
    std::shared_ptr<platform::UITableViewCell>
    tableViewCellForRowAtIndexPath(platform::UITableView& table, platform::NSIndexPath path) override;

private:
    std::shared_ptr<platform::UITableViewCell> makeCell();

    platform::Dictionary applications_;
    std::optional<RestrictedApplications> enabled_;
    std::optional<platform::MutableArray> disabled_;
    platform::MutableArray allApps_;
    std::shared_ptr<platform::UITableView> tableView_;
    /// The AppList library; null when it could not be opened.
    void* applist_ = nullptr;
};

} // namespace wardlock
