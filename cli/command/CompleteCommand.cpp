#include "cli/command/Commands.h"
#include "cli/command/InstalledApplications.h"
#include "cli/command/SettingNames.h"
#include "cli/io/Output.h"
#include "cli/io/Suggestion.h"
#include "cli/io/TextWidth.h"
#include "settings/Accounts.h"
#include "settings/OfferedApplications.h"

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace wardlock::cli {

namespace {

using Names = std::vector<std::string>;

/// Reads the document without writing the defaults: completing a word changes nothing.
Names accountNames() {
    return Accounts::onDisk().names();
}

Names settingNames() {
    Names names;
    for (const NamedSetting& setting : settingsIn(SettingScope::Everywhere)) {
        names.push_back(setting.key);
        // The label of two settings names neither.
        if (setting.label != setting.key && setting.label != "Enabled")
            names.push_back(setting.label);
    }
    return names;
}

Names appNames() {
    Names names;
    const platform::Dictionary installed = installedApplications().names;
    for (const platform::Value& row : offeredApplications(installed, {}).copy())
        names.emplace_back(platform::stringValue(installed.find(row.string())).value_or(row.string()));
    return names;
}

struct Source {
    std::string_view kind;
    Names (*names)();
};
constexpr std::array sources{Source{"accounts", accountNames}, Source{"apps", appNames},
                             Source{"settings", settingNames}};

ExitCode complete(const Arguments& arguments) {
    const std::string_view kind = arguments.operand(0);
    const auto source = std::ranges::find(sources, kind, &Source::kind);
    if (source == sources.end()) {
        const std::array known{sources[0].kind, sources[1].kind, sources[2].kind};
        throw CommandError(ExitCode::WrongUsage, "unknown kind '" + std::string(kind) +
                                                     "': expected accounts, apps or settings" +
                                                     didYouMean(kind, known));
    }
    // A name that is not one printable line cannot be completed.
    for (const std::string& name : source->names())
        if (!name.empty() && printable(name) == name)
            Output::line(name);
    return ExitCode::Done;
}

} // namespace

const Verb completeVerb{
    "complete",
    "KIND",
    "list names, for shell completion",
    "Prints the names of one KIND, one per line: accounts, apps or settings. The\n"
    "completions for bash and zsh run it. Nothing is created or changed.\n",
    {},
    1,
    1,
    complete,
    "wardlock complete settings\n",
};

} // namespace wardlock::cli
