#include "cli/command/AccountNames.h"
#include "cli/command/AccountSummary.h"
#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/InstalledApplications.h"
#include "cli/command/NameMatch.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingsChange.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "settings/DocumentPath.h"
#include "settings/Keys.h"
#include "settings/OfferedApplications.h"

#include <algorithm>
#include <array>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

struct App {
    std::string identifier;
    std::string name;
    bool installed;
    bool restricted;
};

std::vector<App> appsOf(const Accounts& accounts, std::size_t position, const platform::Dictionary& names) {
    const platform::Dictionary* record = accounts.record(position);
    const platform::Array* stored = platform::arrayValue(record ? record->find(kAppsRestricted) : nullptr);
    const platform::Array restricted = stored ? *stored : platform::Array();
    const std::size_t count = record ? restrictedApps(*record).size() : 0;
    std::vector<App> apps;
    std::set<std::string> listed;
    for (const platform::Value& row : offeredApplications(names, restricted).copy()) {
        const std::string identifier(row.string());
        const bool isRestricted = apps.size() < count;
        const auto name = platform::stringValue(names.find(identifier));
        apps.push_back({identifier, std::string(name.value_or("")), name.has_value(), isRestricted});
    }
    // An identifier may be stored twice.
    std::erase_if(apps, [&listed](const App& app) { return !listed.insert(app.identifier).second; });
    return apps;
}

std::string noListReason(const InstalledApplications& installed) {
    return "cannot list applications: " + installed.problem;
}

void printJson(const App& app) {
    Json json = Json::object();
    json["identifier"] = app.identifier;
    json["name"] = app.name;
    json["installed"] = app.installed;
    json["restricted"] = app.restricted;
    Output::foreignLine(jsonLine(json));
}

ExitCode listApps(const Arguments& arguments) {
    const Accounts accounts = loadedAccounts();
    const std::size_t position = accountOf(arguments, accounts);
    const InstalledApplications installed = installedApplications();
    if (!installed.problem.empty())
        throw CommandError(ExitCode::Failed, noListReason(installed));
    const std::vector<App> apps = appsOf(accounts, position, installed.names);
    std::size_t width = 0;
    for (const App& app : apps)
        width = std::max(width, columnsOf(printable(app.name)));
    for (const App& app : apps)
        if (arguments.has(jsonOption.name))
            printJson(app);
        else
            Output::line((app.restricted ? "restricted  " : "allowed     ") +
                         padded(printable(app.name), width) + "  " + printable(app.identifier) +
                         (app.installed ? "" : "  (not installed)"));
    return ExitCode::Done;
}

/// Returns the identifiers of the named applications, which the account's picker lists.
std::vector<std::string> identifiersOf(const Arguments& arguments, const std::vector<App>& apps) {
    std::vector<Named> things;
    for (const App& app : apps) {
        things.push_back({{app.identifier}, app.identifier});
        if (app.installed)
            things.back().names.push_back(app.name);
    }
    std::vector<std::string> identifiers;
    for (const std::string_view name : arguments.operands())
        identifiers.push_back(
            apps[indexOfNamed(name, things, {"app", "apps"}, Spelling::Similar)].identifier);
    return identifiers;
}

ExitCode change(const Arguments& arguments, Restriction restriction) {
    loadToChange();
    const Accounts accounts = loadedAccounts();
    const std::size_t position = accountOf(arguments, accounts);
    const platform::Dictionary* record = accounts.record(position);
    if (!platform::arrayValue(record ? record->find(kAppsRestricted) : nullptr))
        throw CommandError(ExitCode::Failed, "account " + numberAndName(accounts, position) +
                                                 " has no list of restricted apps");
    // What is restricted already can be named all the same.
    const InstalledApplications installed = installedApplications();
    if (!installed.problem.empty())
        Output::error(std::string("wardlock ") + (restriction == Restriction::On ? "restrict" : "allow") +
                      ": " + noListReason(installed));
    const auto identifiers = identifiersOf(arguments, appsOf(accounts, position, installed.names));
    finish(setRestricted(documentPath(BundleIdentifier), choiceOf(arguments), identifiers, restriction));
    return ExitCode::Done;
}

ExitCode restrictApps(const Arguments& arguments) {
    return change(arguments, Restriction::On);
}

ExitCode allowApps(const Arguments& arguments) {
    return change(arguments, Restriction::Off);
}

constexpr std::array listOptions{accountOption, jsonOption};
constexpr std::array changeOptions{accountOption};

} // namespace

const Verb appsVerb{
    "apps",
    "",
    "list the apps that an account can restrict",
    "Prints one line for each app, in the order of the account's picker: whether it\n"
    "is restricted, its name, and its identifier. The restricted apps come first. A\n"
    "restricted app is listed even if it is not installed.\n"
    "\n"
    "With --json, prints one object per line: \"identifier\", \"name\", \"installed\" and\n"
    "\"restricted\".\n",
    listOptions,
    0,
    0,
    onReadableSettings<listApps>,
    "wardlock apps\nwardlock apps --account Kim --json\n",
};

const Verb restrictVerb{
    "restrict",
    "APP...",
    "restrict apps for an account",
    "Adds the apps to the restricted apps of the account, in one change. APP is a\n"
    "name or an identifier of `wardlock apps`; case does not matter in a name. If a\n"
    "name matches several apps, an error lists their identifiers.\n",
    changeOptions,
    1,
    std::numeric_limits<std::size_t>::max(),
    onReadableSettings<restrictApps>,
    "wardlock restrict FaceTime Mail\nwardlock restrict --account Kim com.apple.facetime\n",
};

const Verb allowVerb{
    "allow",
    "APP...",
    "allow apps for an account",
    "Removes the apps from the restricted apps of the account, in one change. APP is\n"
    "a name or an identifier of `wardlock apps`; case does not matter in a name. If a\n"
    "name matches several apps, an error lists their identifiers.\n",
    changeOptions,
    1,
    std::numeric_limits<std::size_t>::max(),
    onReadableSettings<allowApps>,
    "wardlock allow FaceTime\n",
};

} // namespace wardlock::cli
