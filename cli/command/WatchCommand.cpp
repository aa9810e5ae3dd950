#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/io/Json.h"
#include "cli/io/Output.h"
#include "cli/io/Signals.h"
#include "cli/io/TextWidth.h"
#include "cli/io/TypedJson.h"
#include "platform/runtime/MainLoop.h"
#include "platform/text/Format.h"
#include "settings/Constants.h"
#include "settings/EnabledAccount.h"
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

std::string changeAsJson(const Value* key, const Value* object) {
    const auto name = platform::stringValue(key);
    Json json = Json::object();
    json["key"] = name ? Json(std::string(*name)) : Json();
    json["value"] = typedJson(object);
    json["tweakEnabled"] = TweakEnabled();
    json["accountEnabled"] = AccountEnabled();
    return jsonLine(json);
}

std::string changeAsText(const Value* key, const Value* object) {
    std::string text = printable(platform::stringValue(key).value_or("(no key)"));
    text += " = " + (object ? jsonLine(typedJson(*object)) : "(no value)");
    text += TweakEnabled() ? "; in force" : "; not in force";
    return text + (AccountEnabled() ? ", an account is enabled" : ", no account is enabled");
}

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
        throw CommandError(ExitCode::Failed, "cannot write the output: its reader has closed it");
    return waits[1].revents == 0;
}

ExitCode watch(const Arguments& arguments) {
    const bool json = arguments.has(jsonOption.name);
    const Signals stop{SIGINT, SIGTERM};
    // Printed after the dispatch: a failure must not be thrown through the bus library.
    std::vector<std::string> arrived;
    InitSettingsWithUpdateNameAndCallback(PostName, [json, &arrived](const Value* key, const Value* object) {
        arrived.push_back(json ? changeAsJson(key, object) : changeAsText(key, object));
    });
    Output::error("Watching for changes; stop with SIGINT or SIGTERM.");
    while (waitForWork(stop)) {
        platform::MainLoop::shared().process();
        for (const std::string& change : std::exchange(arrived, {}))
            Output::foreignLine(change);
        Output::flush();
    }
    UpdateCallback = nullptr;
    return ExitCode::Done;
}

constexpr std::array watchOptions{jsonOption};

} // namespace

const Verb watchVerb{
    "watch",
    "",
    "print each change of the settings as it is announced",
    "Registers for changes as the enforcing process does, and prints each change\n"
    "after the settings have been reloaded, until SIGINT or SIGTERM. A line that\n"
    "begins with \"Watching\" on standard error reports that the registration is\n"
    "complete.\n"
    "\n"
    "Like every process that reads the settings, this verb first writes the defaults\n"
    "where the document or a top-level key is missing.\n"
    "\n"
    "With --json, prints one object a line: \"key\", \"value\" (in the form of\n"
    "`wardlock plist dump`, or null), and \"tweakEnabled\" and \"accountEnabled\" as\n"
    "they are after the change.\n",
    watchOptions,
    0,
    0,
    watch,
};

} // namespace wardlock::cli
