#include "cli/command/Commands.h"
#include "cli/command/WindowProgram.h"
#include "cli/io/Output.h"
#include "cli/script/ScriptSettings.h"
#include "cli/terminal/TerminalSettings.h"
#include "shell/device/Provision.h"

#include <array>

namespace wardlock::cli {

namespace {

constexpr Option scriptOption{
    "--script", "FILE", "obey the JSON commands in FILE, one a line;\n\"-\" reads them from standard input"};
constexpr Option terminalOption{"--terminal", "", "use the terminal though there is a display"};

ExitCode settings(const Arguments& arguments) {
    const auto script = arguments.value(scriptOption.name);
    if (!script && !arguments.has(terminalOption.name))
        openWindowProgram();
    const shell::Provision provision;
    for (const auto& problem : provision.problems())
        Output::error(problem);
    return script ? runScriptSettings(*script) : runTerminalSettings();
}

constexpr std::array settingsOptions{scriptOption, terminalOption};

} // namespace

const Verb settingsVerb{
    "settings",
    "",
    "open Settings: in a window, in the terminal, or for a script",
    "Opens Settings in a window where there is a display, and in the terminal\n"
    "otherwise. What the device root lacks is made first: its folders, the link to\n"
    "the settings bundle, and the default document where there is none.\n"
    "\n"
    "In the terminal, a number taps the row, b goes back and ? lists the rest.\n"
    "\n"
    "With --script, every line of FILE is a JSON command and is answered by one line\n"
    "of JSON on standard output. Commands that cannot be carried out are answered by\n"
    "an \"error\" and end nothing. All of them are described in\n"
    "\n"
    "  docs/automation.md\n",
    settingsOptions,
    0,
    0,
    settings,
};

} // namespace wardlock::cli
