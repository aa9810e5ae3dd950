#pragma once

#include "platform/values/Value.h"
#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/history/ChangeText.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// A default account of another name.
inline platform::Dictionary account(std::string_view name) {
    platform::MutableDictionary record(*Accounts::defaults().record(0));
    record.set(kAccountName, platform::Value(name));
    return record.copy();
}

/// The same with another value of one key.
inline platform::Dictionary account(std::string_view name, std::string_view key,
                                    const platform::Value& value) {
    platform::MutableDictionary record(account(name));
    record.set(key, value);
    return record.copy();
}

/// A document with these accounts, the master switch on and no passcode.
inline platform::Dictionary documentOf(std::initializer_list<platform::Value> accounts) {
    return {{kEnabled, true}, {kPasscode, ""}, {kAccounts, platform::Array(accounts)}};
}

inline std::vector<std::string> texts(const platform::Dictionary& before, const platform::Dictionary& after) {
    return changeTexts(difference(before, after));
}

} // namespace wardlock::test
