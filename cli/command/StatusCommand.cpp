#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "settings/Accounts.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

using platform::Value;

/// The enabled account, and what it restricts.
struct AccountStatus {
    /// Its index among the accounts, and their number.
    std::size_t index = 0;
    std::size_t count = 0;
    std::optional<std::string> name;
    /// The keys of its restrictions that are on, in the order of the record.
    std::vector<std::string> restrictions;
    std::vector<std::string> apps;
};

std::vector<std::string> activeRestrictions() {
    std::vector<std::string> keys;
    const auto defaults = Accounts::defaults();
    for (const auto& [key, value] : *defaults.record(0))
        if (value.kind() == Value::Kind::Boolean && key != kAccountEnabled && AccountBool(key))
            keys.emplace_back(key);
    return keys;
}

std::vector<std::string> strings(const platform::Array* array) {
    std::vector<std::string> result;
    if (array)
        for (const Value& element : *array)
            if (const auto text = platform::stringValue(&element))
                result.emplace_back(*text);
    return result;
}

std::optional<AccountStatus> accountStatus() {
    const auto accounts = Accounts::of(objectForKey(kAccounts));
    const auto enabled = accounts ? accounts->firstEnabled() : std::nullopt;
    if (!enabled)
        return std::nullopt;
    AccountStatus status;
    status.index = *enabled;
    status.count = accounts->size();
    if (const auto name = platform::stringValue(AccountString(kAccountName)))
        status.name = *name;
    status.restrictions = activeRestrictions();
    status.apps = strings(platform::arrayValue(AccountObject(kAppsRestricted)));
    return status;
}

Json asJson(const std::optional<AccountStatus>& account) {
    if (!account)
        return nullptr;
    Json json = Json::object();
    json["index"] = account->index;
    json["name"] = account->name ? Json(*account->name) : Json();
    json["restrictions"] = account->restrictions;
    json["apps"] = account->apps;
    return json;
}

void printList(std::string_view title, const std::vector<std::string>& entries) {
    Output::line(std::string(title) + (entries.empty() ? " nothing" : ""));
    for (const std::string& entry : entries)
        Output::line("  " + printable(entry));
}

void printAccount(const std::optional<AccountStatus>& account) {
    if (!account) {
        Output::line("Enabled account: none");
        return;
    }
    Output::line("Enabled account: " + printable(account->name.value_or("unnamed")) + " (account " +
                 std::to_string(account->index + 1) + " of " + std::to_string(account->count) + ")");
    printList("Restrictions:", account->restrictions);
    printList("Restricted apps:", account->apps);
}

ExitCode status(const Arguments& arguments) {
    const bool enabled = boolForKey(kEnabled);
    const bool tweakEnabled = TweakEnabled();
    const std::optional<AccountStatus> account = accountStatus();
    if (arguments.has(jsonOption.name)) {
        Json json = Json::object();
        json["enabled"] = enabled;
        json["tweakEnabled"] = tweakEnabled;
        json["account"] = asJson(account);
        Output::foreignLine(jsonLine(json));
        return ExitCode::Done;
    }
    Output::line(enabled ? "Master switch: on" : "Master switch: off");
    Output::line(tweakEnabled ? "In force: yes" : "In force: no");
    printAccount(account);
    return ExitCode::Done;
}

constexpr std::array statusOptions{jsonOption};

} // namespace

const Verb statusVerb{
    "status",
    "",
    "show whether Wardlock is on, and what the enabled account restricts",
    "Prints the master switch, whether restrictions are in force (the switch is on\n"
    "and an account is enabled), the enabled account, and what it restricts.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "where the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints one object: \"enabled\", \"tweakEnabled\", and \"account\". The\n"
    "last is null or an object of \"index\" (from 0), \"name\" (or null),\n"
    "\"restrictions\" and \"apps\".\n",
    statusOptions,
    0,
    0,
    status,
};

} // namespace wardlock::cli
