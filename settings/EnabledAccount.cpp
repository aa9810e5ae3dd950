#include "settings/EnabledAccount.h"

#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

namespace wardlock {

std::optional<platform::Dictionary> EnabledAccount;

std::optional<platform::Dictionary> EnabledAccountNew() {
    const auto accounts = Accounts::of(objectForKey(kAccounts));
    const auto enabled = accounts ? accounts->firstEnabled() : std::nullopt;
    return enabled ? std::optional(*accounts->record(*enabled)) : std::nullopt;
}

const std::optional<platform::Dictionary>& EnabledAccountFetchIfNecessary() {
    if (!EnabledAccount)
        EnabledAccount = EnabledAccountNew();
    return EnabledAccount;
}

const platform::Value* AccountObject(std::string_view key) {
    const auto& account = EnabledAccountFetchIfNecessary();
    return account ? account->find(key) : nullptr;
}

bool AccountBool(std::string_view key) {
    return platform::boolValue(AccountObject(key));
}

float AccountFloat(std::string_view key) {
    return platform::floatValue(AccountObject(key));
}

const platform::Value* AccountString(std::string_view key) {
    return AccountObject(key);
}

bool AccountEnabled() {
    return EnabledAccountFetchIfNecessary().has_value();
}

bool TweakEnabled() {
    return boolForKey(kEnabled) && AccountEnabled();
}

} // namespace wardlock
