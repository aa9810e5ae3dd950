#include "cli/command/Commands.h"
#include "cli/command/CommonOptions.h"
#include "cli/doctor/Finding.h"
#include "cli/io/Output.h"
#include "cli/io/TextWidth.h"

#include <algorithm>
#include <array>

namespace wardlock::cli {

namespace {

constexpr std::array looks{&lookAtDeviceRoot, &lookAtDocument, &lookAtLog,       &lookAtBus,   &lookAtBundle,
                           &lookAtAppList,    &lookAtWindow,   &lookAtWebEngine, &lookAtFonts, &lookAtMail};

bool isBroken(const Finding& finding) {
    return !finding.works && finding.need == Finding::Need::Needed;
}

std::string asJson(const Finding& finding) {
    Json json = Json::object();
    json["check"] = finding.name;
    json["works"] = finding.works;
    json["needed"] = finding.need == Finding::Need::Needed;
    json["text"] = finding.text;
    json["advice"] = finding.advice;
    json.update(finding.facts);
    return jsonLine(json);
}

void print(const Finding& finding) {
    const std::string_view verdict = finding.works ? "ok      " : isBroken(finding) ? "BROKEN  " : "absent  ";
    Output::line(std::string(verdict) + std::string(finding.title) + ": " + printable(finding.text));
    for (const std::string& advice : finding.advice)
        Output::line("        -> " + printable(advice));
}

ExitCode doctor(const Arguments& arguments) {
    const bool json = arguments.has(jsonOption.name);
    std::ptrdiff_t broken = 0;
    for (const auto look : looks) {
        const Finding finding = look();
        broken += isBroken(finding);
        if (json)
            Output::foreignLine(asJson(finding));
        else
            print(finding);
    }
    if (!json && broken == 0)
        Output::line("All that Wardlock needs works.");
    else if (!json)
        Output::line("Of what Wardlock needs, " + std::to_string(broken) +
                     (broken == 1 ? " thing does" : " things do") + " not work.");
    return broken == 0 ? ExitCode::Done : ExitCode::Failed;
}

constexpr std::array doctorOptions{jsonOption};

} // namespace

const Verb doctorVerb{
    "doctor",
    "",
    "tell what works, what does not, and what to do about it",
    "Looks at the device root, the document, the log, the bus, the settings bundle,\n"
    "the AppList module, the window, its web engine and font, and the way of the\n"
    "support mail. Each gets a line: \"ok\", \"absent\" (Wardlock does without it) or\n"
    "\"BROKEN\", and below it, after \"->\", what to do. Nothing is changed or created.\n"
    "\n"
    "Exit code 0 when all that Wardlock needs works, 1 when something does not.\n"
    "\n"
    "With --json an object a line: \"check\", \"works\", \"needed\", \"text\", \"advice\" (a\n"
    "list), and what was found, such as \"path\", \"size\" or \"accounts\".\n",
    doctorOptions,
    0,
    0,
    doctor,
};

} // namespace wardlock::cli
