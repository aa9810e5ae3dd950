#include "cli/command/AccountSummary.h"
#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/InstalledApplications.h"
#include "cli/command/ReadableSettings.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "cli/io/TimeText.h"
#include "platform/files/DeviceRoot.h"
#include "platform/services/ChangeListeners.h"
#include "settings/Accounts.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace wardlock::cli {

namespace {

using Listeners = std::optional<std::vector<platform::ChangeListener>>;

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

std::optional<AccountStatus> accountStatus() {
    const auto accounts = Accounts::of(objectForKey(kAccounts));
    const auto enabled = accounts ? accounts->firstEnabled() : std::nullopt;
    if (!enabled)
        return std::nullopt;
    const platform::Dictionary& record = *accounts->record(*enabled);
    AccountStatus status;
    status.index = *enabled;
    status.count = accounts->size();
    if (const auto name = platform::stringValue(record.find(kAccountName)))
        status.name = *name;
    status.restrictions = activeRestrictions(record);
    status.apps = restrictedApps(record);
    return status;
}

/// Returns whether the keypad would ask for a passcode: for any but the empty one.
bool passcodeIsSet() {
    return platform::stringValue(objectForKey(kPasscode)) != "";
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

Json asJson(const Listeners& listeners) {
    if (!listeners)
        return nullptr;
    Json json = Json::array();
    for (const platform::ChangeListener& listener : *listeners)
        json.push_back({{"process", listener.process}, {"program", listener.program}});
    return json;
}

std::string inWords(const Listeners& listeners) {
    if (!listeners)
        return "unknown: the bus does not list them";
    std::string text;
    for (const platform::ChangeListener& listener : *listeners)
        text += (text.empty() ? "" : ", ") + printable(listener.program) + " (process " +
                std::to_string(listener.process) + ')';
    return text.empty() ? "no process" : text;
}

void printAccount(const std::optional<AccountStatus>& account) {
    if (!account) {
        Output::line("Enabled account: none");
        return;
    }
    Output::line("Enabled account: " + printable(account->name.value_or("unnamed")) + " (account " +
                 std::to_string(account->index + 1) + " of " + std::to_string(account->count) + ")");
    Output::line("Restrictions: " + restrictionsInWords(account->restrictions));
    Output::line("Restricted apps: " + printable(appsInWords(account->apps, installedApplications().names)));
}

/// Returns when the document was last changed; none when there is no document.
std::optional<Time> timeOfDocument() {
    struct stat status {};
    if (stat(platform::pathOnDevice(documentPath(BundleIdentifier)).c_str(), &status) != 0)
        return std::nullopt;
    return std::chrono::sys_seconds(std::chrono::seconds(status.st_mtime));
}

ExitCode status(const Arguments& arguments) {
    const bool enabled = boolForKey(kEnabled);
    const bool tweakEnabled = TweakEnabled();
    const std::optional<AccountStatus> account = accountStatus();
    const std::optional<Time> changed = timeOfDocument();
    const Listeners listeners = platform::changeListeners();
    if (arguments.has(jsonOption.name)) {
        Json json = Json::object();
        json["enabled"] = enabled;
        json["tweakEnabled"] = tweakEnabled;
        json["account"] = asJson(account);
        json["passcode"] = passcodeIsSet();
        json["since"] = changed ? Json(universalTime(*changed)) : Json();
        json["listeners"] = asJson(listeners);
        Output::foreignLine(jsonLine(json));
        return ExitCode::Done;
    }
    Output::line(enabled ? "Master switch: on" : "Master switch: off");
    Output::line(tweakEnabled ? "In force: yes" : "In force: no");
    Output::line(passcodeIsSet() ? "Passcode: set" : "Passcode: not set");
    printAccount(account);
    Output::line("Since: " + (changed ? localTime(*changed) : "unknown"));
    Output::line("Listening: " + inWords(listeners));
    return ExitCode::Done;
}

constexpr std::array statusOptions{jsonOption};

} // namespace

const Verb statusVerb{
    "status",
    "",
    "show whether Wardlock is on, and what the enabled account restricts",
    "Prints the master switch, and whether restrictions are in force: the switch is\n"
    "on and an account is enabled. Then prints whether a passcode is set, the enabled\n"
    "account and what it restricts. The last lines are the time of the last change,\n"
    "and the processes on the bus that listen for changes, on this device or another.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints one object: \"enabled\", \"tweakEnabled\", \"account\", \"passcode\"\n"
    "(whether one is set), \"since\" (UTC) and \"listeners\" (a list of \"process\" and\n"
    "\"program\", or null). The account is null or an object of \"index\" (from 0),\n"
    "\"name\" (or null), \"restrictions\" and \"apps\".\n",
    statusOptions,
    0,
    0,
    onReadableSettings<status>,
    "wardlock status\nwardlock status --json\n",
};

} // namespace wardlock::cli
