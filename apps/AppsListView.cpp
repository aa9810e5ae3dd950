#include "apps/AppsListView.h"

#include "platform/plist/PropertyListFile.h"
#include "platform/runtime/Class.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/services/ALApplicationList.h"
#include "platform/ui/UISwitch.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/DocumentChange.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "settings/OfferedApplications.h"
#include "specifiers/SelectedIndex.h"

namespace wardlock {
namespace {

using platform::Array;
using platform::Dictionary;
using platform::Value;

constexpr const char* cellIdentifier = "theCell";
constexpr int iconSize = 29;
constexpr double rowHeight = 35;

const std::string preferencesPath = documentPath(BundleIdentifier);

/// The record of the account that the most recently opened picker edits.
std::optional<Dictionary> SelectedAccount;

/// Returns the application list where the device has the AppList library. The class is looked up each time,
/// since the library may be loaded and unloaded.
platform::ALApplicationList* sharedApplicationList() {
    const platform::Class* found = platform::objc_getClass("ALApplicationList");
    auto* methods = found ? found->classMethods<platform::ALApplicationListClass>() : nullptr;
    return methods ? &methods->sharedApplicationList() : nullptr;
}

/// Returns the element at SelectedIndex when it is a record; none when the document has no accounts.
std::optional<Dictionary> selectedRecord(const std::optional<Dictionary>& document) {
    const auto accounts = Accounts::of(document ? document->find(kAccounts) : nullptr);
    const Dictionary* record = accounts ? accounts->record(selectedPosition()) : nullptr;
    return record ? std::optional(*record) : std::nullopt;
}

} // namespace

std::shared_ptr<AppsListView> AppsListView::initWithFrame(const platform::CGRect& frame) {
    auto view = std::make_shared<AppsListView>(frame);
    SelectedAccount = selectedRecord(platform::dictionaryWithContentsOfFile(preferencesPath));
    view->applist_ = platform::dlopen(platform::appListLibraryPath, platform::RTLD_Lazy);
    view->setupTableViewWithFrame(frame);
    return view;
}

AppsListView::~AppsListView() {
    platform::dlclose(applist_);
}

platform::Array AppsListView::hiddenDisplayIdentifiers() const {
    return wardlock::hiddenDisplayIdentifiers();
}

void AppsListView::setupArrays() {
    platform::ALApplicationList* list = sharedApplicationList();
    setApplications(list ? list->applications() : Dictionary());
    const Array* stored =
        SelectedAccount ? platform::arrayValue(SelectedAccount->find(kAppsRestricted)) : nullptr;
    setEnabled(stored ? std::optional<RestrictedApplications>(*stored) : std::nullopt);
    setAllApps(offeredApplications(applications_, stored ? *stored : Array()));
}

void AppsListView::savePreferences() {
    const std::optional<Value> list = enabled_ ? std::optional<Value>(enabled_->copy()) : std::nullopt;
    const DocumentChange change =
        setAccountValue(preferencesPath, selectedAccount, kAppsRestricted, list ? &*list : nullptr);
    if (change.update.changed)
        SelectedAccount = selectedRecord(change.update.dictionary);
    announce(change);
}

void AppsListView::setupTableViewWithFrame(const platform::CGRect& frame) {
    setupArrays();
    setTableView(std::make_shared<platform::UITableView>(frame, platform::UITableViewStyle::Grouped));
    const std::shared_ptr<AppsListView> view = self(this);
    tableView_->setDelegate(view);
    tableView_->setDataSource(view);
    tableView_->setAutoresizingMask(platform::UIViewAutoresizingFlexibleWidth |
                                    platform::UIViewAutoresizingFlexibleHeight);
    addSubview(tableView_);
}

std::size_t AppsListView::numberOfSectionsInTableView(platform::UITableView&) {
    return 1;
}

std::size_t AppsListView::tableViewNumberOfRowsInSection(platform::UITableView&, std::size_t) {
    return allApps_.size();
}

double AppsListView::tableViewHeightForRowAtIndexPath(platform::UITableView&, platform::NSIndexPath) {
    return rowHeight;
}

std::shared_ptr<platform::UITableViewCell>
AppsListView::tableViewCellForRowAtIndexPath(platform::UITableView& table, platform::NSIndexPath path) {
    std::shared_ptr<platform::UITableViewCell> cell = table.dequeueReusableCellWithIdentifier(cellIdentifier);
    if (!cell)
        cell = makeCell();
    const std::string_view identifier = allApps_.at(path.row).string();
    auto& appSwitch = static_cast<platform::UISwitch&>(*cell->accessoryView());
    appSwitch.setTag(static_cast<long>(path.row));
    appSwitch.setOn(enabled_ && enabled_->contains(identifier), false);
    platform::ALApplicationList* list = sharedApplicationList();
    cell->setImage(list ? list->iconOfSize(iconSize, identifier) : nullptr);
    cell->textLabel().setText(platform::stringValue(applications_.find(identifier)).value_or(""));
    cell->detailTextLabel().setText(identifier);
    cell->detailTextLabel().setHidden(true);
    return cell;
}

std::shared_ptr<platform::UITableViewCell> AppsListView::makeCell() {
    auto cell =
        platform::UITableViewCell::initWithStyle(platform::UITableViewCellStyle::Value1, cellIdentifier);
    cell->setSelectionStyle(platform::UITableViewCellSelectionStyle::None);
    auto appSwitch = std::make_shared<platform::UISwitch>(platform::CGRectZero);
    appSwitch->addTarget(self(this),
                         platform::UIControl::Action::of<&AppsListView::switchChanged>("switchChanged:"),
                         platform::UIControlEventValueChanged);
    appSwitch->setOn(false, false);
    cell->setAccessoryView(appSwitch);
    return cell;
}

void AppsListView::switchChanged(platform::UIControl& sender) {
    const auto cell = std::dynamic_pointer_cast<platform::UITableViewCell>(sender.superview());
    if (!cell)
        return;
    const std::string& identifier = cell->detailTextLabel().text();
    if (enabled_ && static_cast<platform::UISwitch&>(sender).isOn())
        enabled_->append(identifier);
    else if (enabled_)
        enabled_->remove(identifier);
    savePreferences();
}

} // namespace wardlock
