#include "cli/command/AccountSummary.h"
#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/ReadableSettings.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "settings/Accounts.h"
#include "settings/Keys.h"
#include "settings/Settings.h"

#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

struct Line {
    std::size_t number;
    std::string name;
    bool enabled;
    std::size_t restrictions;
    std::size_t apps;
};

std::vector<Line> linesOf(const Accounts& accounts) {
    std::vector<Line> lines;
    for (std::size_t position = 0; position < accounts.size(); ++position) {
        const platform::Dictionary* stored = accounts.record(position);
        const platform::Dictionary record = stored ? *stored : platform::Dictionary();
        lines.push_back({position + 1, accounts.name(position),
                         platform::boolValue(record.find(kAccountEnabled)), activeRestrictions(record).size(),
                         restrictedApps(record).size()});
    }
    return lines;
}

void printJson(const Line& line) {
    Json json = Json::object();
    json["number"] = line.number;
    json["name"] = line.name;
    json["enabled"] = line.enabled;
    json["restrictions"] = line.restrictions;
    json["apps"] = line.apps;
    Output::foreignLine(jsonLine(json));
}

ExitCode listAccounts(const Arguments& arguments) {
    const auto accounts = Accounts::of(objectForKey(kAccounts));
    const std::vector<Line> lines = linesOf(accounts.value_or(Accounts()));
    std::size_t width = 0;
    for (const Line& line : lines)
        width = std::max(width, columnsOf(printable(line.name)));
    for (const Line& line : lines)
        if (arguments.has(jsonOption.name))
            printJson(line);
        else
            Output::line(padded(std::to_string(line.number), 3) + ' ' + padded(printable(line.name), width) +
                         (line.enabled ? "  on   " : "  off  ") + counted(line.restrictions, "restriction") +
                         ", " + counted(line.apps, "app"));
    return ExitCode::Done;
}

constexpr std::array listOptions{jsonOption};

} // namespace

const Verb accountsVerb{
    "accounts",
    "",
    "list the accounts",
    "Prints one line for each account: its number, its name, whether it is enabled,\n"
    "and how many restrictions and restricted apps it has. Other verbs take the name\n"
    "or the number.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints one object per line: \"number\", \"name\", \"enabled\",\n"
    "\"restrictions\" and \"apps\".\n",
    listOptions,
    0,
    0,
    onReadableSettings<listAccounts>,
    "wardlock accounts\n",
};

} // namespace wardlock::cli
