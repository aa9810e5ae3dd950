#include "cli/command/ChangeProgram.h"
#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/command/ReadableSettings.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "cli/io/PlainJson.h"
#include "cli/io/Signals.h"
#include "cli/io/TextWidth.h"
#include "platform/runtime/MainLoop.h"
#include "settings/Constants.h"
#include "settings/EnabledAccount.h"
#include "settings/Keys.h"
#include "settings/SettingLabels.h"
#include "settings/Settings.h"

#include <array>
#include <cerrno>
#include <nlohmann/json.hpp>
#include <poll.h>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace wardlock::cli {

namespace {

using platform::Value;

/// A change as it was announced, and what holds after it.
struct Change {
    std::string key;
    std::string json;
    std::string text;
};

std::string changeAsJson(const Arguments& arguments, const Value* key, const Value* object) {
    const auto name = platform::stringValue(key);
    Json json = Json::object();
    json["key"] = name ? Json(std::string(*name)) : Json();
    json["value"] = jsonOf(arguments, object);
    json["tweakEnabled"] = TweakEnabled();
    json["accountEnabled"] = AccountEnabled();
    return jsonLine(json);
}

/// Returns "on" for a switch, and other values as JSON.
std::string valueInWords(const Value* object) {
    if (object && object->is(Value::Kind::Boolean))
        return object->boolean() ? "on" : "off";
    return object ? jsonLine(plainJson(*object)) : "(no value)";
}

std::string changeAsText(const Value* key, const Value* object) {
    const std::string name(platform::stringValue(key).value_or("(no key)"));
    const std::string label(accountLabel(name));
    std::string text = printable(label == name || name == kAccountEnabled ? name : label + " (" + name + ')');
    text += " = " + valueInWords(object);
    text += TweakEnabled() ? "; in force" : "; not in force";
    return text + (AccountEnabled() ? ", an account is enabled" : ", no account is enabled");
}

constexpr Option execOption{"--exec", "COMMAND", "run a shell command for each change"};

/// Waits until the main loop has work. Returns false when a signal ends the verb.
bool waitForWork(const Signals& stop) {
    std::array<pollfd, 3> waits{
        pollfd{platform::MainLoop::shared().descriptor(), POLLIN, 0},
        pollfd{stop.descriptor(), POLLIN, 0},
        // Without requested events, poll reports only that the reader has closed its end.
        pollfd{STDOUT_FILENO, 0, 0},
    };
    if (poll(waits.data(), waits.size(), -1) < 0 && errno != EINTR)
        throw std::system_error(errno, std::generic_category(), "poll");
    if (waits[2].revents != 0)
        throw ReaderGone();
    return waits[1].revents == 0;
}

/// Prints the changes, or runs the command of --exec for each.
void report(const Arguments& arguments, const std::vector<Change>& changes, const Signals& stop) {
    const auto shellCommand = arguments.value(execOption.name);
    for (const Change& change : changes)
        if (!shellCommand)
            Output::foreignLine(wantsJson(arguments) ? change.json : change.text);
        else if (!runForChange(std::string(*shellCommand), change.key, change.json, stop))
            break;
    Output::flush();
}

ExitCode watch(const Arguments& arguments) {
    const Signals stop{SIGINT, SIGTERM};
    // Printed after the dispatch: a failure must not be thrown through the bus library.
    std::vector<Change> arrived;
    InitSettingsWithUpdateNameAndCallback(
        PostName, [&arguments, &arrived](const Value* key, const Value* object) {
            arrived.push_back({std::string(platform::stringValue(key).value_or("")),
                               changeAsJson(arguments, key, object), changeAsText(key, object)});
        });
    Output::error("Watching for changes; stop with SIGINT or SIGTERM.");
    while (waitForWork(stop)) {
        platform::MainLoop::shared().process();
        report(arguments, std::exchange(arrived, {}), stop);
    }
    UpdateCallback = nullptr;
    return ExitCode::Done;
}

constexpr std::array watchOptions{jsonOption, typedOption, execOption};

} // namespace

const Verb watchVerb{
    "watch",
    "",
    "print each change of the settings as it is announced",
    "Registers for changes as the enforcing process does, and prints each change\n"
    "after the settings have been reloaded, until SIGINT or SIGTERM. When the\n"
    "registration is complete, prints a line that begins with \"Watching\" to standard\n"
    "error.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "if the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints one object per line: \"key\", \"value\" (or null), and\n"
    "\"tweakEnabled\" and \"accountEnabled\" as they are after the change.\n"
    "\n"
    "With --exec, the shell runs COMMAND for each change, one after the other. Its\n"
    "standard input is the line that --json prints, and WARDLOCK_KEY contains the\n"
    "key.\n",
    watchOptions,
    0,
    0,
    onReadableSettings<watch>,
    "wardlock watch\nwardlock watch --exec 'logger \"changed: $WARDLOCK_KEY\"'\n",
};

} // namespace wardlock::cli
