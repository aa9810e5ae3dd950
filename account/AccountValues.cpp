// The account page's values: what its rows read and store, and the deletion of the account.

#include "account/AppsController.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"
#include "settings/Accounts.h"
#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "specifiers/SelectedIndex.h"

namespace wardlock {

using platform::UIAlertAction;
using platform::UIAlertActionStyle;
using platform::Value;

namespace {

constexpr const char* BlankName = "Blank";

/// Returns false when there is no account to change.
bool storeInAccount(Accounts& accounts, std::string_view key, const Value* value) {
    if (accounts.empty())
        return false;
    // The account itself may be the one switched off: it is set again below.
    if (key == kAccountEnabled && platform::boolValue(value)) {
        const Value off(false);
        if (const auto enabled = accounts.firstEnabled())
            accounts.set(*enabled, kAccountEnabled, &off);
    }
    return accounts.set(selectedPosition(), key, value);
}

bool removeAccount(Accounts& accounts) {
    if (accounts.empty())
        return false;
    accounts.remove(selectedPosition());
    return true;
}

} // namespace

std::optional<Value> AppsController::getValue(platform::PSSpecifier& specifier) {
    const auto entries = document(BundleIdentifier);
    const Value* value = nullptr;
    const auto accounts = Accounts::of(entries ? entries->find(kAccounts) : nullptr);
    if (accounts && !accounts->empty()) {
        const auto* record = accounts->record(selectedPosition());
        value = record ? record->find(specifier.identifier()) : nullptr;
    } else {
        value = specifier.valueForKey(platform::PSKey::defaultValue);
    }
    return value ? std::optional(*value) : std::nullopt;
}

void AppsController::setValue(const Value* value, platform::PSSpecifier& specifier) {
    const std::string key = specifier.identifier();
    const Value blank(BlankName);
    if (key == kAccountName && (!value || platform::stringValue(value) == ""))
        value = &blank;
    const auto update = updateAccounts(documentPath(BundleIdentifier), [&key, value](Accounts& accounts) {
        return storeInAccount(accounts, key, value);
    });
    if (update.changed)
        postChange(BundleIdentifier, PostName, key, *value);
}

void AppsController::deleteAccount() {
    const auto alert = platform::UIAlertController::alertControllerWithTitle(
        "Delete Account", "Are you sure you want to delete this account?",
        platform::UIAlertControllerStyle::Alert);
    alert->addAction(UIAlertAction::actionWithTitle("Cancel", UIAlertActionStyle::Cancel, {}));
    // Keeps the page alive until the handler has run.
    const auto deleteTapped = [page = self(this)](UIAlertAction&) { page->deleteSelectedAccount(); };
    alert->addAction(UIAlertAction::actionWithTitle("Delete", UIAlertActionStyle::Destructive, deleteTapped));
    presentViewController(alert, true);
}

void AppsController::deleteSelectedAccount() {
    const auto update = updateAccounts(documentPath(BundleIdentifier), removeAccount);
    if (update.changed)
        postChange(BundleIdentifier, PostName, kAccounts, *update.dictionary.find(kAccounts));
    if (const auto navigation = navigationController())
        navigation->popViewControllerAnimated(true);
}

} // namespace wardlock
