#pragma once

/// The keys of the preferences document.

#include <string_view>

namespace wardlock {

/// Boolean: the master switch.
inline constexpr std::string_view kEnabled = "kEnabled";
/// String: the four digits; empty while no passcode has been set.
inline constexpr std::string_view kPasscode = "kPasscode";
/// Array of account records, in the order of their creation.
inline constexpr std::string_view kAccounts = "kAccounts";

/// Keys of an account record: booleans, except the name and the list of restricted applications.
inline constexpr std::string_view kAccountEnabled = "kAccountEnabled";
inline constexpr std::string_view kAccountName = "kAccountName";
inline constexpr std::string_view kPasscodeDisabled = "kPasscodeDisabled";
inline constexpr std::string_view kHideApps = "kHideApps";
inline constexpr std::string_view kRestrictUninstall = "kRestrictUninstall";
inline constexpr std::string_view kRestrictDrag = "kRestrictDrag";
inline constexpr std::string_view kRestrictEdit = "kRestrictEdit";
inline constexpr std::string_view kRestrictCC = "kRestrictCC";
inline constexpr std::string_view kRestrictNC = "kRestrictNC";
inline constexpr std::string_view kRestrictSwitcher = "kRestrictSwitcher";
inline constexpr std::string_view kRestrictSwitcherContacts = "kRestrictSwitcherContacts";
inline constexpr std::string_view kRestrictCamera = "kRestrictCamera";
inline constexpr std::string_view kRestrictVideo = "kRestrictVideo";
inline constexpr std::string_view kRestrictSiri = "kRestrictSiri";
inline constexpr std::string_view kRestrictKeyboard = "kRestrictKeyboard";
/// In every new record, though no page edits it.
inline constexpr std::string_view kRestrictResponders = "kRestrictResponders";
inline constexpr std::string_view kRestrictVolume = "kRestrictVolume";
inline constexpr std::string_view kRestrictVibrate = "kRestrictVibrate";
inline constexpr std::string_view kRestrictPowerDown = "kRestrictPowerDown";
/// Array of bundle identifiers.
inline constexpr std::string_view kAppsRestricted = "kAppsRestricted";

} // namespace wardlock
