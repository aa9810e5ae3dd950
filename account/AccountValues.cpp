// The account page's values: what its rows read and store, and the deletion of the account.

#include "account/AppsController.h"
#include "platform/ui/UIAlertController.h"
#include "platform/ui/UINavigationController.h"
#include "settings/ChangeNotification.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "specifiers/SelectedIndex.h"

namespace wardlock {

using platform::Array;
using platform::MutableArray;
using platform::MutableDictionary;
using platform::UIAlertAction;
using platform::UIAlertActionStyle;
using platform::Value;

namespace {

constexpr const char* BlankName = "Blank";

/// A negative SelectedIndex becomes an index beyond every array.
std::size_t selected() {
    return static_cast<std::size_t>(SelectedIndex);
}

/// Returns null when `stored` is not an array or is empty.
const Array* accountsIn(const Value* stored) {
    const auto* accounts = platform::arrayValue(stored);
    return accounts && !accounts->empty() ? accounts : nullptr;
}

/// Switches off the first account that is enabled, and only that one.
void disableFirstEnabled(MutableArray& accounts) {
    for (std::size_t index = 0; index < accounts.size(); ++index) {
        const auto* record = platform::dictionaryValue(&accounts.at(index));
        if (!record || !platform::boolValue(record->find(kAccountEnabled)))
            continue;
        MutableDictionary disabled(*record);
        disabled.set(kAccountEnabled, Value(false));
        accounts.replace(index, Value(disabled.copy()));
        return;
    }
}

/// Changes the document's entries. Returns false when there is no account to change.
bool storeInAccount(MutableDictionary& entries, std::string_view key, const Value* value) {
    const auto* stored = accountsIn(entries.find(kAccounts));
    if (!stored)
        return false;
    MutableArray accounts(*stored);
    // The account itself may be the one switched off: it is set again below.
    if (key == kAccountEnabled && platform::boolValue(value))
        disableFirstEnabled(accounts);
    const auto* record = platform::dictionaryValue(&accounts.at(selected()));
    if (!record)
        return false;
    MutableDictionary changed(*record);
    changed.set(key, value);
    accounts.remove(selected());
    accounts.insert(selected(), Value(changed.copy()));
    entries.set(kAccounts, Value(accounts.copy()));
    return true;
}

bool removeAccount(MutableDictionary& entries) {
    const auto* stored = accountsIn(entries.find(kAccounts));
    if (!stored)
        return false;
    MutableArray accounts(*stored);
    accounts.remove(selected());
    const auto defaults = DefaultSettings();
    entries.set(kAccounts, accounts.empty() ? *defaults.find(kAccounts) : Value(accounts.copy()));
    return true;
}

} // namespace

std::optional<Value> AppsController::getValue(platform::PSSpecifier& specifier) {
    const auto entries = document(BundleIdentifier);
    const Value* value = nullptr;
    if (const auto* accounts = entries ? accountsIn(entries->find(kAccounts)) : nullptr) {
        const auto* record = platform::dictionaryValue(&accounts->at(selected()));
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
    const auto update = updateDocument(BundleIdentifier, [&key, value](MutableDictionary& entries) {
        return storeInAccount(entries, key, value);
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
    const auto update = updateDocument(BundleIdentifier, removeAccount);
    if (update.changed)
        postChange(BundleIdentifier, PostName, kAccounts, *update.dictionary.find(kAccounts));
    if (const auto navigation = navigationController())
        navigation->popViewControllerAnimated(true);
}

} // namespace wardlock
