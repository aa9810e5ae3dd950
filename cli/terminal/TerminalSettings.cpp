#include "cli/terminal/TerminalSettings.h"

#include "cli/io/Output.h"
#include "cli/io/PageNames.h"
#include "cli/io/Terminal.h"
#include "cli/io/TextWeb.h"
#include "cli/terminal/TerminalView.h"
#include "shell/TerminationHook.h"
#include "shell/device/InstalledFiles.h"

namespace wardlock::cli {

namespace {

void giveTerminalBack() {
    Terminal::restore();
    Output::flushLast();
}

/// Where the device has one settings bundle, the person came for that.
void openOnlyBundle(shell::SettingsApplication& settings) {
    shell::Page& page = *settings.screen().page();
    if (page.sectionCount() == 1 && page.section(0).rowCount == 1 && page.section(0).footer.empty())
        static_cast<void>(settings.page().tapRow({0, 0}));
}

} // namespace

ExitCode runTerminalSettings() {
    shell::installTerminationHook(giveTerminalBack);
    const TextWeb web;
    shell::SteadyClock clock;
    shell::SettingsApplication settings(clock);
    SettingsLoop loop(settings, &clock);
    openOnlyBundle(settings);
    TerminalView face(settings, loop, {Terminal::hasColours()});
    if (Terminal::readsInput()) {
        face.run();
        return ExitCode::Done;
    }
    face.showPage();
    Output::text(withPagesIn(
        shell::installedPages(),
        "\nTo go on, run `wardlock settings` in a terminal, with a display for the window, or with\n"
        "`--script FILE` for commands as JSON lines (docs/automation.md).\n"));
    return ExitCode::Done;
}

} // namespace wardlock::cli
