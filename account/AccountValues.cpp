// The account page's values: what its rows read and store, and the deletion of the account.

#include "account/AppsController.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/Document.h"
#include "settings/DocumentChange.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "specifiers/SelectedIndex.h"

namespace wardlock {

using platform::UIAlertAction;
using platform::UIAlertActionStyle;
using platform::Value;

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
    announce(setAccountValue(documentPath(BundleIdentifier), selectedAccount, specifier.identifier(), value));
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
    announce(wardlock::deleteAccount(documentPath(BundleIdentifier), selectedAccount));
    if (const auto navigation = navigationController())
        navigation->popViewControllerAnimated(true);
}

} // namespace wardlock
