#include "root/SettingsListController.h"

#include "account/AppsController.h"
#include "info/ChangeLogController.h"
#include "info/DeveloperController.h"
#include "passcode/PasscodeView.h"
#include "platform/ui/UIApplication.h"
#include "root/DocumentSnapshot.h"
#include "root/Maker.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/Keys.h"
#include "specifiers/PreferenceHelper.h"
#include "specifiers/PreferenceHelperAdditions.h"
#include "specifiers/SelectedIndex.h"

namespace wardlock {

using platform::NSNotificationCenter;
using platform::UIBarButtonItem;
using ButtonAction = platform::PSSpecifier::ButtonAction;

const platform::Class& SettingsListController::theClass() {
    static constexpr platform::Class theClass("SettingsListController",
                                              &platform::makeInstance<SettingsListController>);
    return theClass;
}

SettingsListController::SettingsListController() = default;

SettingsListController::~SettingsListController() {
    NSNotificationCenter::defaultCenter().removeObserver(*this);
}

const platform::PSListController::Specifiers& SettingsListController::specifiers() {
    // An empty list counts as none: this page always has rows.
    if (PSListController::specifiers().empty())
        setSpecifiers(buildSpecifiers());
    return PSListController::specifiers();
}

platform::PSListController::Specifiers SettingsListController::buildSpecifiers() {
    observeResigning();
    readDocumentSnapshot();
    navigationItem().setRightBarButtonItem(std::make_shared<UIBarButtonItem>(
        platform::UIBarButtonSystemItem::Add, weak_from_this(),
        UIBarButtonItem::Action::of<&SettingsListController::addAccount>("addAccount")));
    setPrefs(
        PreferenceHelper::initWithBundleIdentifier(std::string(BundleIdentifier), std::string(PostName)));

    const auto page = shared_from_this();
    Specifiers rows{
        prefs_->header("General",
                       "To set a passcode, simply tap on \"Passcode\" above. This will protect the settings "
                       "app while a restricted account is enabled. Without a passcode, restricted users can "
                       "easily access settings and disable all restrictions!"),
        prefs_->toggle("Enabled", kEnabled),
        prefs_->button("Passcode", page,
                       ButtonAction::of<&SettingsListController::passcodePressed>("passcodePressed")),
        prefs_->header("Accounts",
                       "Use the '+' button at the top right of the screen to create a new account."),
    };
    appendAccounts(rows);
    rows.insert(
        rows.end(),
        {
            prefs_->header("Contact", "Wardlock is made by Tavix."),
            addIcon(prefs_->button(std::string(profileName), page,
                                   ButtonAction::of<&SettingsListController::openTwitter>("openTwitter:")),
                    "twitter"),
            addIcon(prefs_->button(std::string(supportAddress), page,
                                   ButtonAction::of<&SettingsListController::openEmail>("openEmail:")),
                    "mail"),
            prefs_->link("Change Log", &ChangeLogController::theClass()),
            prefs_->link("More From Tavix", &DeveloperController::theClass()),
        });
    return rows;
}

void SettingsListController::observeResigning() {
    if (observersAdded_)
        return;
    observersAdded_ = true;
    NSNotificationCenter::defaultCenter().addObserver(
        shared_from_this(),
        NSNotificationCenter::Action::of<&SettingsListController::applicationWillResign>(
            "applicationWillResign:"),
        platform::UIApplicationWillResignActiveNotification);
}

void SettingsListController::appendAccounts(Specifiers& rows) {
    const auto accounts = Accounts::of(documentSnapshot ? documentSnapshot->find(kAccounts) : nullptr);
    for (std::string& name : accounts.value_or(Accounts()).names())
        rows.push_back(prefs_->link(std::move(name), &AppsController::theClass()));
}

void SettingsListController::viewDidAppear(bool animated) {
    PSListController::viewDidAppear(animated);
    reloadSpecifiers();
    SelectedIndex = 0;
}

void SettingsListController::tableViewDidSelectRowAtIndexPath(platform::NSIndexPath path) {
    // The accounts' group has only account rows, so that an account's row is its position in "kAccounts".
    // Taps in other groups set the index too, which is harmless.
    SelectedIndex = static_cast<std::intptr_t>(path.row);
    PSListController::tableViewDidSelectRowAtIndexPath(path);
}

void SettingsListController::scrollViewWillBeginDragging() {
    view()->endEditing(true);
}

} // namespace wardlock
