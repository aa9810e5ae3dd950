#include "settings/DocumentChange.h"

#include "settings/ChangeNotification.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "settings/RestrictedApplications.h"

namespace wardlock {

namespace {

using platform::Dictionary;
using platform::Value;

constexpr const char* blankName = "Blank";

/// Changes the accounts of the document and takes what is to be announced from the changed list.
DocumentChange changeAccounts(std::string_view documentPath, std::string_view key,
                              const std::function<bool(Accounts&)>& change) {
    return {updateAccounts(documentPath, change), std::string(key), std::nullopt};
}

bool isEmptyName(const Value* name) {
    return !name || platform::stringValue(name) == "";
}

void switchFirstEnabledOff(Accounts& accounts) {
    const Value off(false);
    if (const auto enabled = accounts.firstEnabled())
        accounts.set(*enabled, kAccountEnabled, &off);
}

Dictionary newAccount(std::string_view name) {
    platform::MutableDictionary record(*Accounts::defaults().record(0));
    record.set(kAccountName, Value(name));
    return record.copy();
}

/// Returns the account's list after the change; none when it has no list.
std::optional<Value> restricted(const Dictionary* record, std::span<const std::string> applications,
                                Restriction restriction) {
    const platform::Array* stored = platform::arrayValue(record ? record->find(kAppsRestricted) : nullptr);
    if (!stored)
        return std::nullopt;
    RestrictedApplications list(*stored);
    for (const std::string& identifier : applications)
        if (restriction == Restriction::Off)
            list.remove(identifier);
        else if (!list.contains(identifier))
            list.append(identifier);
    return list.copy();
}

} // namespace

void announce(const DocumentChange& change, std::string_view identifier, std::string_view post) {
    if (change.update.changed)
        postChange(identifier, post, change.key, *change.object);
}

DocumentChange setTopLevelValue(std::string_view identifier, std::string_view key, const Value* value) {
    const auto setKey = [&](platform::MutableDictionary& entries) {
        entries.set(key, value);
        return true;
    };
    return {updateDocument(identifier, setKey), std::string(key), *value};
}

DocumentChange setAccountValue(std::string_view documentPath, const AccountChoice& account,
                               std::string_view key, const Value* value) {
    const Value blank(blankName);
    if (key == kAccountName && isEmptyName(value))
        value = &blank;
    const auto set = [&](Accounts& accounts) {
        if (accounts.empty())
            return false;
        const std::size_t position = account(accounts);
        // The account itself may be the one switched off: it is set again below.
        if (key == kAccountEnabled && platform::boolValue(value))
            switchFirstEnabledOff(accounts);
        return accounts.set(position, key, value);
    };
    DocumentChange change = changeAccounts(documentPath, key, set);
    if (change.update.changed)
        change.object = *value;
    return change;
}

DocumentChange deleteAccount(std::string_view documentPath, const AccountChoice& account) {
    DocumentChange change = changeAccounts(documentPath, kAccounts, [&](Accounts& accounts) {
        if (accounts.empty())
            return false;
        accounts.remove(account(accounts));
        return true;
    });
    if (change.update.changed)
        change.object = *change.update.dictionary.find(kAccounts);
    return change;
}

DocumentChange createAccount(std::string_view documentPath, std::string_view name) {
    const Dictionary record = newAccount(name);
    DocumentChange change = changeAccounts(documentPath, kAccounts, [&record](Accounts& accounts) {
        accounts.append(record);
        return true;
    });
    change.object = record;
    return change;
}

DocumentChange setRestricted(std::string_view documentPath, const AccountChoice& account,
                             std::span<const std::string> applications, Restriction restriction) {
    std::optional<Value> list;
    DocumentChange change = changeAccounts(documentPath, kAppsRestricted, [&](Accounts& accounts) {
        if (accounts.empty())
            return false;
        const std::size_t position = account(accounts);
        list = restricted(accounts.record(position), applications, restriction);
        return accounts.set(position, kAppsRestricted, list ? &*list : nullptr);
    });
    change.object = list;
    return change;
}

} // namespace wardlock
