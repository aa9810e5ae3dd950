#include "cli/terminal/TerminalSettings.h"

#include "cli/fullscreen/FullScreenView.h"
#include "cli/io/Output.h"
#include "cli/io/PageNames.h"
#include "cli/io/Terminal.h"
#include "cli/io/TextWeb.h"
#include "cli/terminal/TerminalView.h"
#include "shell/TerminationHook.h"
#include "shell/device/InstalledFiles.h"

#include <memory>

namespace wardlock::cli {

namespace {

void restoreTerminal() {
    CursesTerminal::restore();
    Terminal::restore();
    Output::flushLast();
}

/// Opens the settings bundle of a device that has only one.
void openOnlyBundle(shell::SettingsApplication& settings) {
    shell::Page& page = *settings.screen().page();
    if (page.sectionCount() == 1 && page.section(0).rowCount == 1 && page.section(0).footer.empty())
        static_cast<void>(settings.page().tapRow({0, 0}));
}

std::unique_ptr<CursesTerminal> takeTerminal(TerminalStyle style, const TerminalTraits& traits) {
    return style == TerminalStyle::Automatic && isCapableTerminal() ? CursesTerminal::open(traits) : nullptr;
}

} // namespace

ExitCode runTerminalSettings(TerminalStyle style) {
    shell::installTerminationHook(restoreTerminal);
    const TextWeb web;
    shell::SteadyClock clock;
    shell::SettingsApplication settings(clock);
    SettingsLoop loop(settings, &clock);
    openOnlyBundle(settings);
    const TerminalTraits traits = TerminalTraits::ofEnvironment();
    if (const auto terminal = takeTerminal(style, traits))
        return FullScreenView(settings, loop, *terminal, traits.utf8).run() ? ExitCode::Done
                                                                            : ExitCode::Failed;
    TerminalView view(settings, loop, {Terminal::hasColours()});
    if (Terminal::readsInput()) {
        view.run();
        return ExitCode::Done;
    }
    view.showPage();
    Output::text(withPagesIn(
        shell::installedPages(),
        "\nTo change settings, run `wardlock settings` in a terminal, or with a display for the window.\n"
        "Scripts use `wardlock settings --script FILE` (docs/automation.md).\n"));
    return ExitCode::Done;
}

} // namespace wardlock::cli
