#include "account/AppsController.h"

#include "apps/AppsListController.h"
#include "settings/Keys.h"
#include "specifiers/PreferenceHelper.h"

namespace wardlock {

using platform::PSSpecifier;

const platform::Class& AppsController::theClass() {
    static constexpr platform::Class theClass("AppsController", &platform::makeInstance<AppsController>);
    return theClass;
}

AppsController::AppsController() = default;
AppsController::~AppsController() = default;

const platform::PSListController::Specifiers& AppsController::specifiers() {
    if (!hasSpecifiers())
        setSpecifiers(buildSpecifiers());
    return PSListController::specifiers();
}

platform::PSListController::Specifiers AppsController::buildSpecifiers() {
    setPrefs(PreferenceHelper::initWithTarget(
        shared_from_this(), PSSpecifier::SetAction::of<&AppsController::setValue>("setValue:specifier:"),
        PSSpecifier::GetAction::of<&AppsController::getValue>("getValue:")));
    return {
        prefs_->toggle("Enabled", kAccountEnabled),
        prefs_->field("Account Name", kAccountName),
        prefs_->header("Restricted Apps"),
        prefs_->link("Apps", &AppsListController::theClass()),
        prefs_->header("Restrictions",
                       "Will disable the lockscreen passcode during restricted use only. The settings "
                       "application will remain locked with the passcode you set for wardlock"),
        prefs_->toggle("Disable Lockscreen Passcode", kPasscodeDisabled),
        prefs_->header("Icons", "\"Hide Icons\" will fully hide the icons for restricted applications, but "
                                "will keep a blank spot to retain the grid map."),
        prefs_->toggle("Hide Icons", kHideApps),
        prefs_->toggle("Editing", kRestrictEdit),
        prefs_->toggle("Dragging", kRestrictDrag),
        prefs_->toggle("Uninstall", kRestrictUninstall),
        prefs_->header("System"),
        prefs_->toggle("Power Down", kRestrictPowerDown),
        prefs_->toggle("Siri", kRestrictSiri),
        prefs_->toggle("Control Center", kRestrictCC),
        prefs_->toggle("Notification Center", kRestrictNC),
        prefs_->toggle("App Switcher", kRestrictSwitcher),
        prefs_->toggle("App Switcher Contacts", kRestrictSwitcherContacts),
        prefs_->toggle("Keyboard", kRestrictKeyboard),
        prefs_->toggle("Volume Buttons", kRestrictVolume),
        prefs_->toggle("Vibrate Switch", kRestrictVibrate),
        prefs_->header("Media", "Some media applications may need to be restarted to restore full "
                                "unrestricted functionality after disabling restrictions."),
        prefs_->toggle("Camera", kRestrictCamera),
        prefs_->toggle("Video", kRestrictVideo),
        prefs_->spacer(),
        prefs_->button("Delete Account",
                       PSSpecifier::ButtonAction::of<&AppsController::deleteAccount>("deleteAccount")),
    };
}

void AppsController::scrollViewWillBeginDragging() {
    view()->endEditing(true);
}

} // namespace wardlock
