#include "settings/DefaultSettings.h"

#include "settings/Keys.h"

namespace wardlock {

namespace {

platform::Array defaultRestrictedApplications() {
    return {
        "com.apple.facetime",    "com.apple.mobilephone", "com.apple.MobileSMS",
        "com.apple.mobilenotes", "com.apple.mobilemail",  "com.apple.AppStore",
        "com.apple.VoiceMemos",  "com.apple.Passbook",    "com.apple.MobileStore",
    };
}

/// A record's keys are listed and written in this order.
platform::Dictionary defaultAccount() {
    return {
        {kAccountEnabled, false},
        {kAccountName, "Default"},
        {kPasscodeDisabled, true},
        {kHideApps, false},
        {kRestrictUninstall, true},
        {kRestrictDrag, true},
        {kRestrictEdit, true},
        {kRestrictCC, true},
        {kRestrictNC, true},
        {kRestrictSwitcher, false},
        {kRestrictSwitcherContacts, true},
        {kRestrictCamera, false},
        {kRestrictVideo, false},
        {kRestrictSiri, false},
        {kRestrictKeyboard, false},
        {kRestrictResponders, false},
        {kRestrictVolume, false},
        {kRestrictVibrate, false},
        {kRestrictPowerDown, false},
        {kAppsRestricted, defaultRestrictedApplications()},
    };
}

} // namespace

platform::Dictionary DefaultSettings() {
    return {
        {kEnabled, true},
        {kPasscode, ""},
        {kAccounts, platform::Array{defaultAccount()}},
    };
}

} // namespace wardlock
