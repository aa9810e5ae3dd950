#include "cli/command/AccountNames.h"
#include "cli/command/Commands.h"
#include "cli/command/PropertyListCommand.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingNames.h"
#include "cli/command/SettingsChange.h"
#include "platform/text/CaseFolding.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"

#include <algorithm>
#include <array>
#include <string>

namespace wardlock::cli {

namespace {

using platform::Value;

Value switchValue(std::string_view text) {
    static constexpr std::array on{"on", "true", "yes", "1"};
    static constexpr std::array off{"off", "false", "no", "0"};
    std::string folded;
    platform::appendCaseFolded(text, folded);
    if (std::ranges::find(on, folded) != on.end())
        return true;
    if (std::ranges::find(off, folded) != off.end())
        return false;
    throw CommandError(ExitCode::WrongUsage, '\'' + std::string(text) + "' is neither on nor off");
}

/// Returns the verb that changes a setting that is neither a switch nor a text; empty for all others.
std::string_view verbFor(std::string_view key) {
    if (key == kPasscode)
        return "passcode set";
    if (key == kAccounts)
        return "account";
    return key == kAppsRestricted ? "restrict" : "";
}

Value valueFor(const NamedSetting& setting, std::string_view text) {
    if (const std::string_view verb = verbFor(setting.key); !verb.empty())
        throw CommandError(ExitCode::WrongUsage,
                           "use `wardlock " + std::string(verb) + "` to change " + setting.key);
    if (setting.key != kAccountName)
        return switchValue(text);
    requireText(text);
    return text;
}

ExitCode set(const Arguments& arguments) {
    const bool named = arguments.has(accountOption.name);
    const NamedSetting setting =
        settingNamed(arguments.operand(0), named ? SettingScope::Account : SettingScope::Everywhere);
    const Value value = valueFor(setting, arguments.operand(1));
    loadToChange();
    finish(setting.ofAccount
               ? setAccountValue(documentPath(BundleIdentifier), choiceOf(arguments), setting.key, &value)
               : setTopLevelValue(BundleIdentifier, setting.key, &value));
    return ExitCode::Done;
}

constexpr std::array setOptions{accountOption};

} // namespace

const Verb setVerb{
    "set",
    "SETTING VALUE",
    "change a setting",
    "Changes a setting as its page does, and notifies all processes. SETTING is a key\n"
    "(kRestrictCC) or a label (\"Control Center\"). In a label, case does not matter,\n"
    "and a dash can replace a space. VALUE is on or off, or a text for \"Account\n"
    "Name\".\n"
    "\n"
    "A setting of an account is changed in the account that --account names. Without\n"
    "--account, the enabled account is changed, or the only account if none is\n"
    "enabled. With --account, SETTING must be a setting of an account.\n",
    setOptions,
    2,
    2,
    onReadableSettings<set>,
    "wardlock set kEnabled off\nwardlock set --account Kim \"Control Center\" on\n"
    "wardlock set siri on\n",
};

} // namespace wardlock::cli
