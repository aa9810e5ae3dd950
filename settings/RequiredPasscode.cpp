#include "settings/RequiredPasscode.h"

#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/DefaultSettings.h"
#include "settings/Document.h"
#include "settings/Keys.h"

namespace wardlock {

using platform::Dictionary;
using platform::Value;

std::optional<RequiredPasscode> RequiredPasscode::onDisk() {
    bool isUnreadable = false;
    const auto entries = document(BundleIdentifier, isUnreadable);
    if (isUnreadable)
        return RequiredPasscode(std::nullopt);
    const Dictionary defaults = DefaultSettings();
    const auto valueOf = [&](std::string_view key) {
        const Value* value = entries ? entries->find(key) : nullptr;
        return value ? value : defaults.find(key);
    };
    const auto accounts = Accounts::of(valueOf(kAccounts));
    if (!platform::boolValue(valueOf(kEnabled)) || !accounts || !accounts->firstEnabled())
        return std::nullopt;
    const auto passcode = platform::stringValue(valueOf(kPasscode));
    if (passcode == "")
        return std::nullopt;
    return RequiredPasscode(passcode ? std::optional<std::string>(*passcode) : std::nullopt);
}

} // namespace wardlock
