#include "settings/SettingLabels.h"

#include "settings/Keys.h"

#include <algorithm>
#include <array>

namespace wardlock {

namespace {

constexpr std::array ofDocument{
    SettingLabel{kEnabled, "Enabled"},
    SettingLabel{kPasscode, "Passcode"},
    SettingLabel{kAccounts, "Accounts"},
};

constexpr std::array ofAccount{
    SettingLabel{kAccountEnabled, "Enabled"},
    SettingLabel{kAccountName, "Account Name"},
    SettingLabel{kAppsRestricted, "Restricted Apps"},
    SettingLabel{kPasscodeDisabled, "Disable Lockscreen Passcode"},
    SettingLabel{kHideApps, "Hide Icons"},
    SettingLabel{kRestrictEdit, "Editing"},
    SettingLabel{kRestrictDrag, "Dragging"},
    SettingLabel{kRestrictUninstall, "Uninstall"},
    SettingLabel{kRestrictPowerDown, "Power Down"},
    SettingLabel{kRestrictSiri, "Siri"},
    SettingLabel{kRestrictCC, "Control Center"},
    SettingLabel{kRestrictNC, "Notification Center"},
    SettingLabel{kRestrictSwitcher, "App Switcher"},
    SettingLabel{kRestrictSwitcherContacts, "App Switcher Contacts"},
    SettingLabel{kRestrictKeyboard, "Keyboard"},
    SettingLabel{kRestrictVolume, "Volume Buttons"},
    SettingLabel{kRestrictVibrate, "Vibrate Switch"},
    SettingLabel{kRestrictCamera, "Camera"},
    SettingLabel{kRestrictVideo, "Video"},
};

} // namespace

std::span<const SettingLabel> documentLabels() {
    return ofDocument;
}

std::span<const SettingLabel> accountLabels() {
    return ofAccount;
}

std::string_view accountLabel(std::string_view key) {
    const auto found = std::ranges::find(ofAccount, key, &SettingLabel::key);
    return found == ofAccount.end() ? key : found->label;
}

} // namespace wardlock
