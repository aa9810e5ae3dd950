#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/doctor/CheckResult.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"

#include <algorithm>
#include <array>

namespace wardlock::cli {

namespace {

constexpr std::array checks{
    &checkDeviceRoot, &checkStorage, &checkDocument,         &checkHistory, &checkLog,
    &checkBus,        &checkBundle,  &checkAppList,          &checkWindow,  &checkWebEngine,
    &checkFonts,      &checkEmoji,   &checkEastAsianLetters, &checkPortal,  &checkMail};

bool isBroken(const CheckResult& result) {
    return !result.works && result.need == CheckResult::Need::Needed;
}

std::string asJson(const CheckResult& result) {
    Json json = Json::object();
    json["check"] = result.name;
    json["works"] = result.works;
    json["needed"] = result.need == CheckResult::Need::Needed;
    json["text"] = result.text;
    json["advice"] = result.advice;
    json.update(result.facts);
    return jsonLine(json);
}

void print(const CheckResult& result) {
    const std::string_view verdict = result.works ? "ok      " : isBroken(result) ? "BROKEN  " : "absent  ";
    Output::line(std::string(verdict) + std::string(result.title) + ": " + printable(result.text));
    for (const std::string& advice : result.advice)
        Output::line("        -> " + printable(advice));
}

ExitCode doctor(const Arguments& arguments) {
    const bool json = arguments.has(jsonOption.name);
    std::ptrdiff_t broken = 0;
    for (const auto check : checks) {
        const CheckResult result = check();
        broken += isBroken(result);
        if (json)
            Output::foreignLine(asJson(result));
        else
            print(result);
    }
    if (!json && broken == 0)
        Output::line("No problems found.");
    else if (!json)
        Output::line(std::to_string(broken) + (broken == 1 ? " problem" : " problems") + " found.");
    return broken == 0 ? ExitCode::Done : ExitCode::Failed;
}

constexpr std::array doctorOptions{jsonOption};

} // namespace

const Verb doctorVerb{
    "doctor",
    "",
    "check the installation, and suggest repairs",
    "Checks the installation and prints one line for each check: \"ok\", \"absent\"\n"
    "(Wardlock works without it) or \"BROKEN\". Lines with \"->\" suggest what to do. The\n"
    "checks are of:\n"
    "\n"
    "  - the device root, the storage of changes, the document, its earlier versions\n"
    "    and the log\n"
    "  - the bus, the settings bundle and the AppList module\n"
    "  - the window, its web engine and fonts, the desktop's contrast, and the route\n"
    "    of support mail\n"
    "\n"
    "The check of the storage creates a file beside the document and removes it.\n"
    "Nothing else is changed.\n"
    "\n"
    "The exit code is 0 if nothing is broken, 1 otherwise.\n"
    "\n"
    "With --json, prints one object per line: \"check\", \"works\", \"needed\", \"text\",\n"
    "\"advice\" (a list), and what was found, such as \"path\", \"size\" or \"accounts\".\n",
    doctorOptions,
    0,
    0,
    doctor,
    "wardlock doctor\nwardlock doctor --json\n",
};

} // namespace wardlock::cli
