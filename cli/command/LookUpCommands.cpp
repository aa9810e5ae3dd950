#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "cli/io/TypedJson.h"
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
    if (arguments.has(jsonOption.name))
        Output::foreignLine(jsonLine(typedJson(*value)));
    else if (value->kind() == platform::Value::Kind::Boolean)
        Output::line(value->boolean() ? "true" : "false");
    else
        Output::foreignLine(platform::description(*value));
    return ExitCode::Done;
}

ExitCode get(const Arguments& arguments) {
    return printValue(arguments, objectForKey(arguments.operand(0)), "the settings");
}

ExitCode account(const Arguments& arguments) {
    if (!EnabledAccountFetchIfNecessary())
        throw CommandError(ExitCode::Failed, "no account is enabled");
    return printValue(arguments, AccountObject(arguments.operand(0)), "the enabled account");
}

constexpr std::array lookUpOptions{jsonOption};

} // namespace

const Verb getVerb{
    "get",
    "KEY",
    "print the value of a top-level key of the settings",
    "Prints the value of a top-level key (kEnabled, kPasscode, kAccounts) as the\n"
    "settings library returns it. Exit code 1 when there is no such key. On a\n"
    "terminal, control characters are printed as escapes; a pipe or file gets the\n"
    "unchanged value.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "where the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints the value in the form of `wardlock plist dump`.\n",
    lookUpOptions,
    1,
    1,
    get,
};

const Verb accountVerb{
    "account",
    "KEY",
    "print the value of a key of the enabled account",
    "Prints the value of a key (kAccountName, kRestrictSiri...) of the enabled\n"
    "account. Exit code 1 when no account is enabled or the account lacks the key.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "where the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints the value in the form of `wardlock plist dump`.\n",
    lookUpOptions,
    1,
    1,
    account,
};

} // namespace wardlock::cli
