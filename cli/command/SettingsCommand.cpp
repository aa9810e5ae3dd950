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
    "--script", "FILE", "run the JSON commands in FILE, one per line;\n\"-\" reads them from standard input"};
constexpr Option terminalOption{"--terminal", "", "use the terminal even if there is a display"};
constexpr Option plainOption{"--plain", "", "use the terminal line by line, for screen readers"};

ExitCode settings(const Arguments& arguments) {
    const auto script = arguments.value(scriptOption.name);
    const bool plain = arguments.has(plainOption.name);
    if (!script && !plain && !arguments.has(terminalOption.name))
        openWindowProgram();
    const shell::Provision provision;
    for (const auto& problem : provision.problems())
        Output::error("wardlock settings: " + problem);
    if (script)
        return runScriptSettings(*script);
    return runTerminalSettings(plain ? TerminalStyle::Plain : TerminalStyle::Automatic);
}

constexpr std::array settingsOptions{scriptOption, terminalOption, plainOption};

} // namespace

const Verb settingsVerb{
    "settings",
    "",
    "open Settings: in a window, in the terminal, or for a script",
    "Opens Settings in a window if there is a display, and in the terminal otherwise.\n"
    "First creates what the device root lacks: its folders, the link to the settings\n"
    "bundle, and the default document.\n"
    "\n"
    "In the terminal, Settings uses the whole screen: the arrow keys move, Space\n"
    "taps, Esc goes back, / finds a row, u takes the last change back and ? lists\n"
    "all keys. With --plain, or in a terminal without a screen (TERM is unset or\n"
    "\"dumb\"), Settings works line by line: a number or a name taps the row, b goes\n"
    "back and ? lists all commands. Colours follow the terminal's background,\n"
    "NO_COLOR, COLORTERM and COLORFGBG.\n"
    "\n"
    "While an account is enabled and a passcode is set, Settings asks for the\n"
    "passcode before it opens the pages, and again after the focus was elsewhere.\n"
    "\n"
    "With --script, each line of FILE is a JSON command. For each command, one line\n"
    "of JSON is printed to standard output. If a command cannot be carried out, its\n"
    "line has an \"error\", and the script continues. All commands are documented in\n"
    "\n"
    "  docs/automation.md\n",
    settingsOptions,
    0,
    0,
    settings,
    "wardlock settings\nwardlock settings --terminal\nwardlock settings --script steps.json\n",
};

} // namespace wardlock::cli
