#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/VersionOperand.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"
#include "cli/io/TimeText.h"
#include "cli/io/TypedJson.h"
#include "platform/plist/PropertyList.h"
#include "settings/Document.h"
#include "settings/Keys.h"
#include "settings/history/ChangeText.h"
#include "settings/history/History.h"
#include "settings/history/KeptVersions.h"

#include <array>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::cli {

namespace {

using platform::Dictionary;
using platform::Version;

constexpr std::size_t longestOrigin = 15;

Time timeOf(const Version& version) {
    return Time(std::chrono::milliseconds(version.time));
}

/// Returns who wrote a version.
std::string_view originText(const platform::VersionOrigin& origin) {
    if (origin.place == SettingsPlace)
        return "Settings";
    return origin.place == CommandPlace ? "command" : "another program";
}

/// Returns the word for an action in JSON.
std::string_view actionWord(platform::VersionAction action) {
    switch (action) {
    case platform::VersionAction::Undo:
        return "undo";
    case platform::VersionAction::Redo:
        return "redo";
    case platform::VersionAction::Restore:
        return "restore";
    case platform::VersionAction::Change:
        break;
    }
    return "change";
}

std::string joined(const std::vector<std::string>& texts) {
    std::string line;
    for (const std::string& text : texts)
        line += (line.empty() ? "" : "; ") + text;
    return line;
}

/// Returns what a version changed, or why that is not known.
std::vector<std::string> describe(const History& history, const Version& version) {
    if (const auto changes = history.changes(version)) {
        if (!changes->empty())
            return changeTexts(*changes);
        const bool restored = version.origin.action == platform::VersionAction::Restore;
        return {restored ? "the settings were damaged or missing" : "the same settings in another form"};
    }
    if (!history.document(version))
        return {"damaged: another program wrote into it"};
    return {"the first version that was kept"};
}

void printVersion(const History& history, const Version& version) {
    std::string origin(originText(version.origin));
    origin.resize(longestOrigin, ' ');
    std::string line =
        std::to_string(version.number) + "  " + localTime(timeOf(version)) + "  " + origin + "  ";
    if (version.origin.action != platform::VersionAction::Change)
        line +=
            std::string(actionWord(version.origin.action)) + ' ' + std::to_string(version.origin.of) + ": ";
    Output::line(line + printable(joined(describe(history, version))));
}

void printJson(const History& history, const Version& version) {
    Json json = Json::object();
    json["number"] = version.number;
    json["time"] = universalTimeWithMilliseconds(timeOf(version));
    json["origin"] = version.origin.place;
    json["action"] = actionWord(version.origin.action);
    if (version.origin.action != platform::VersionAction::Change)
        json["of"] = version.origin.of;
    const auto changes = history.changes(version);
    json["changes"] = changes ? Json(changeTexts(*changes)) : Json();
    Output::foreignLine(jsonLine(json));
}

ExitCode list(const Arguments& arguments) {
    const History history;
    if (const std::string reason = reasonAgainst(history.folder()); !reason.empty())
        throw CommandError(ExitCode::Failed, reason);
    const auto& versions = history.versions();
    for (std::size_t i = versions.size(); i-- > 0;)
        if (arguments.has(jsonOption.name))
            printJson(history, versions[i]);
        else
            printVersion(history, versions[i]);
    return ExitCode::Done;
}

Dictionary withoutDigits(const Dictionary& document) {
    const platform::Value* passcode = document.find(kPasscode);
    if (!passcode || platform::stringValue(passcode) == "")
        return document;
    platform::MutableDictionary masked(document);
    masked.set(kPasscode, "****");
    return masked.copy();
}

ExitCode show(const Arguments& arguments) {
    const History history;
    const Dictionary document = withoutDigits(documentOfOperand(history, arguments.operand(0)));
    if (arguments.has(jsonOption.name)) {
        Output::foreignLine(jsonLine(typedJson(document)));
        return ExitCode::Done;
    }
    std::string text = platform::dataWithPropertyList(document);
    if (text.ends_with('\n'))
        text.pop_back();
    Output::foreignLine(text);
    return ExitCode::Done;
}

ExitCode diff(const Arguments& arguments) {
    const History history;
    const Dictionary older = documentOfOperand(history, arguments.operand(0));
    std::optional<Dictionary> newer;
    if (arguments.operands().size() > 1)
        newer = documentOfOperand(history, arguments.operand(1));
    else
        newer = document(BundleIdentifier);
    if (!newer)
        throw CommandError(ExitCode::Failed, "there is no document now, or it is damaged");
    for (const std::string& text : changeTexts(difference(older, *newer)))
        Output::line(printable(text));
    return ExitCode::Done;
}

constexpr std::array jsonOptions{jsonOption};

} // namespace

const Verb historyVerb{
    "history",
    "",
    "list the changes of the settings that can be taken back",
    "Lists the kept versions of the settings, the newest first. Each line has the\n"
    "version's number, when it was written, what wrote it (Settings, a command or\n"
    "another program), and what it changed. A passcode's digits are never printed.\n"
    "\n"
    "At most 200 versions are kept, each for 90 days after it was replaced.\n"
    "If no version can be kept, prints the reason, and the exit code is 1.\n"
    "\n"
    "With --json, prints one object per line: \"number\", \"time\", \"origin\" (\"settings\",\n"
    "\"command\", \"program\" or \"unknown\"), \"action\" (\"change\", \"undo\", \"redo\" or\n"
    "\"restore\"), \"of\" (the version that was taken back or restored), and \"changes\"\n"
    "(texts, or null if they are not known).\n",
    jsonOptions,
    0,
    0,
    list,
    "wardlock history\nwardlock history --json\n",
};

const Verb historyShowVerb{
    "history show",
    "N",
    "print a version of the settings, with the passcode masked",
    "Prints version N of the settings as a property list, with a passcode printed as\n"
    "****. With --json, prints it like `wardlock plist dump`.\n",
    jsonOptions,
    1,
    1,
    show,
    "wardlock history show 41\n",
};

const Verb historyDiffVerb{
    "history diff",
    "N [M]",
    "print what changed between two versions",
    "Prints the changes that lead from version N of the settings to version M.\n"
    "Without M, compares with the present settings. Prints nothing if they are equal.\n",
    {},
    1,
    2,
    diff,
    "wardlock history diff 41\nwardlock history diff 41 42\n",
};

} // namespace wardlock::cli
