#include "cli/command/AccountNames.h"
#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingNames.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "platform/text/Format.h"
#include "settings/EnabledAccount.h"
#include "settings/Settings.h"

#include <array>
#include <nlohmann/json.hpp>
#include <string>

namespace wardlock::cli {

namespace {

ExitCode printValue(const Arguments& arguments, const platform::Value* value, const std::string& place) {
    if (!value)
        throw CommandError(ExitCode::Failed,
                           "no key '" + std::string(arguments.operand(0)) + "' in " + place);
    if (wantsJson(arguments))
        Output::foreignLine(jsonLine(jsonOf(arguments, value)));
    else if (value->kind() == platform::Value::Kind::Boolean)
        Output::line(value->boolean() ? "true" : "false");
    else
        Output::foreignLine(platform::description(*value));
    return ExitCode::Done;
}

/// Returns the key that the name stands for in the record, which may have keys that no setting has.
std::string keyIn(const platform::Dictionary& record, std::string_view name) {
    return record.find(name) ? std::string(name) : settingNamed(name, SettingScope::Account).key;
}

ExitCode printAccountValue(const Arguments& arguments, std::string_view name) {
    const Accounts accounts = loadedAccounts();
    const std::size_t position = accountOf(arguments, accounts);
    const platform::Dictionary* record = accounts.record(position);
    const std::string place = "account " + numberAndName(accounts, position);
    return printValue(arguments, record ? record->find(keyIn(*record, name)) : nullptr, place);
}

ExitCode get(const Arguments& arguments) {
    const std::string_view name = arguments.operand(0);
    if (arguments.has(accountOption.name))
        return printAccountValue(arguments, name);
    if (const platform::Value* value = objectForKey(name))
        return printValue(arguments, value, "the settings");
    const NamedSetting setting = settingNamed(name, SettingScope::Everywhere);
    return setting.ofAccount ? printAccountValue(arguments, setting.key)
                             : printValue(arguments, objectForKey(setting.key), "the settings");
}

ExitCode account(const Arguments& arguments) {
    if (!EnabledAccountFetchIfNecessary())
        throw CommandError(ExitCode::Failed, "no account is enabled");
    return printValue(arguments, AccountObject(arguments.operand(0)), "the enabled account");
}

constexpr std::array getOptions{accountOption, jsonOption, typedOption};
constexpr std::array accountOptions{jsonOption, typedOption};

} // namespace

const Verb getVerb{
    "get",
    "SETTING",
    "print the value of a setting",
    "Prints the value of a setting. SETTING is a key or a label, as for `wardlock\n"
    "set`: a top-level key (kEnabled, kPasscode, kAccounts) as the settings library\n"
    "returns it, or a setting of an account. The exit code is 1 if there is no such\n"
    "setting. On a terminal, control characters are printed as escapes; a pipe or a\n"
    "file receives the value unchanged.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n",
    getOptions,
    1,
    1,
    onReadableSettings<get>,
    "wardlock get kEnabled\nwardlock get --account Kim siri\n",
};

const Verb accountVerb{
    "account",
    "KEY",
    "print the value of a key of the enabled account",
    "Prints the value of a key (kAccountName, kRestrictSiri...) of the enabled\n"
    "account. The exit code is 1 if no account is enabled or the account lacks the\n"
    "key.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n",
    accountOptions,
    1,
    1,
    onReadableSettings<account>,
    "wardlock account kRestrictSiri\n",
};

} // namespace wardlock::cli
