#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

/// A setting that a user names by its key ("kRestrictCC") or its label ("Control Center").
struct NamedSetting {
    std::string key;
    std::string label;
    bool ofAccount = false;
};

/// Where a name is searched.
enum class SettingScope { Account, Everywhere };

/// Returns the settings, those of the whole document first.
std::vector<NamedSetting> settingsIn(SettingScope scope);

/// Throws CommandError (Failed) when the name fits none or several.
NamedSetting settingNamed(std::string_view name, SettingScope scope);

} // namespace wardlock::cli
