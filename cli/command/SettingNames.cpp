#include "cli/command/SettingNames.h"

#include "cli/command/NameMatch.h"
#include "cli/io/CommandError.h"
#include "settings/Accounts.h"
#include "settings/SettingLabels.h"

#include <algorithm>

namespace wardlock::cli {

std::vector<NamedSetting> settingsIn(SettingScope scope) {
    std::vector<NamedSetting> settings;
    if (scope == SettingScope::Everywhere)
        for (const SettingLabel& label : documentLabels())
            settings.push_back({std::string(label.key), std::string(label.label), false});
    for (const SettingLabel& label : accountLabels())
        settings.push_back({std::string(label.key), std::string(label.label), true});
    // Every record has a key that no row edits.
    const Accounts defaults = Accounts::defaults();
    for (const auto& [key, value] : *defaults.record(0))
        if (std::ranges::find(settings, key, &NamedSetting::key) == settings.end())
            settings.push_back({std::string(key), std::string(key), true});
    return settings;
}

NamedSetting settingNamed(std::string_view name, SettingScope scope) {
    if (scope == SettingScope::Account && std::ranges::count(documentLabels(), name, &SettingLabel::key) != 0)
        throw CommandError(ExitCode::Failed,
                           std::string(name) + " is a setting of all accounts; leave out --account");
    const std::vector<NamedSetting> settings = settingsIn(scope);
    std::vector<Named> things;
    things.reserve(settings.size());
    for (const NamedSetting& setting : settings)
        things.push_back({{setting.key, setting.label},
                          setting.key + (setting.ofAccount ? " (of an account)" : " (of all accounts)")});
    return settings[indexOfNamed(name, things, {"setting", "settings"}, Spelling::Similar)];
}

} // namespace wardlock::cli
