#include "cli/command/AccountNames.h"
#include "cli/command/AccountSummary.h"
#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/InstalledApplications.h"
#include "cli/command/ReadableSettings.h"
#include "cli/command/SettingNames.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "settings/Keys.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string>

namespace wardlock::cli {

namespace {

using platform::Dictionary;
using platform::Value;

const Dictionary& recordAt(const Accounts& accounts, std::size_t position) {
    const Dictionary* record = accounts.record(position);
    if (!record)
        throw CommandError(ExitCode::Failed, "account " + std::to_string(position + 1) +
                                                 " is not a dictionary in the document");
    return *record;
}

void printJson(const Arguments& arguments, const Dictionary& record, std::size_t position) {
    const Value settings(record);
    Json json = Json::object();
    json["number"] = position + 1;
    json["settings"] = jsonOf(arguments, &settings);
    Output::foreignLine(jsonLine(json));
}

std::string inWords(const NamedSetting& setting, const Dictionary& record) {
    const Value* value = record.find(setting.key);
    if (setting.key == kAccountName)
        return printable(platform::stringValue(value).value_or(""));
    if (setting.key == kAppsRestricted)
        return printable(appsInWords(restrictedApps(record), installedApplications().names));
    return platform::boolValue(value) ? "on" : "off";
}

void printLines(const Dictionary& record) {
    const auto settings = settingsIn(SettingScope::Account);
    std::size_t width = 0;
    for (const NamedSetting& setting : settings)
        width = std::max(width, setting.label.size());
    for (const NamedSetting& setting : settings)
        Output::line(padded(setting.label, width) + "  " + inWords(setting, record));
}

ExitCode show(const Arguments& arguments) {
    const Accounts accounts = loadedAccounts();
    const std::size_t position = accountNamed(accounts, arguments.operand(0));
    const Dictionary& record = recordAt(accounts, position);
    if (wantsJson(arguments))
        printJson(arguments, record, position);
    else
        printLines(record);
    return ExitCode::Done;
}

constexpr std::array showOptions{jsonOption, typedOption};

} // namespace

const Verb accountShowVerb{
    "account show",
    "NAME",
    "show all settings of an account",
    "Prints each setting of the account with its label, as the account's page shows\n"
    "it. NAME is the account's name, or its number in `wardlock accounts`. \"#2\"\n"
    "always means account number 2.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints one object: \"number\", and \"settings\" by their keys.\n",
    showOptions,
    1,
    1,
    onReadableSettings<show>,
    "wardlock account show Default\nwardlock account show 1 --json\n",
};

} // namespace wardlock::cli
