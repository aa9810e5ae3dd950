#include "platform/services/ProcessStart.h"
#include "platform/services/RunningProgram.h"
#include "platform/services/StopSignals.h"
#include "shell/TerminationHook.h"
#include "shell/device/Provision.h"
#include "shell/screen/EscapedText.h"
#include "window/Graphics.h"
#include "window/Options.h"
#include "window/Screenshots.h"
#include "window/Translation.h"
#include "window/WindowClock.h"
#include "window/WindowHost.h"

#include <QGuiApplication>
#include <QLocale>

#include <cstdio>
#include <cstdlib>

using namespace wardlock;

namespace {

constexpr double transitionSeconds = 0.35;

int usageError(const std::string& error) {
    std::fprintf(stderr, "wardlock-settings: %s\nTry: wardlock-settings --help\n",
                 shell::escaped(error).c_str());
    return 2;
}

/// The messages of Qt until the application object exists, or until Qt ends the process without a display.
struct DisplaySearch {
    bool orTerminal = false;
    bool activated = false;
    QStringList said;
};
DisplaySearch displaySearch;

/// Replaces the message with which Qt ends the process without a display: it advises to reinstall the
/// application.
[[noreturn]] void reportMissingDisplay() {
    const QString reason = displaySearch.said.value(0, QStringLiteral("no display"));
    std::fprintf(stderr, "wardlock-settings: cannot open a window: %s\n",
                 shell::escaped(reason.trimmed().toStdString()).c_str());
    if (displaySearch.orTerminal)
        platform::becomeProgramBeside("wardlock", {"settings", "--terminal"});
    std::fputs(displaySearch.activated
                   ? "The message bus started it without a display. To pass the session's: "
                     "dbus-update-activation-environment --systemd DISPLAY WAYLAND_DISPLAY XAUTHORITY\n"
                   : "To use the terminal instead: wardlock settings --terminal\n",
               stderr);
    std::_Exit(1);
}

void collectDisplayMessage(QtMsgType kind, const QMessageLogContext&, const QString& text) {
    if (kind == QtFatalMsg)
        reportMissingDisplay();
    displaySearch.said.append(text);
}

QtMessageHandler defaultHandler = nullptr;

/// Prints Qt's message, except those that its web engine prints at every start: types of its own QML module,
/// the sandbox that root has to do without, and a scene graph drawn in memory. A user can do nothing about
/// them.
void printMessage(QtMsgType kind, const QMessageLogContext& context, const QString& text) {
    const bool ofEngine = QLatin1String(context.category) == QLatin1String("qt.webenginecontext") ||
                          text.startsWith(QLatin1String("Sandboxing disabled by user")) ||
                          text.startsWith(QLatin1String("No suitable graphics backend found")) ||
                          (text.startsWith(QLatin1String("QWebEngine")) &&
                           text.contains(QLatin1String(" is neither a QObject")));
    if (kind == QtFatalMsg || kind == QtCriticalMsg || !ofEngine)
        defaultHandler(kind, context, text);
}

/// Returns what the desktop passed to this process so that its window may take the focus. Qt takes it away.
std::string activationToken() {
    const auto token =
        qEnvironmentVariable("XDG_ACTIVATION_TOKEN", qEnvironmentVariable("DESKTOP_STARTUP_ID"));
    return token.toStdString();
}

int openWindow(const window::Options& options, const std::vector<std::string>& problems,
               const std::string& token) {
    window::WindowHost* opened = nullptr;
    const auto by = options.activated ? platform::StartedBy::Bus : platform::StartedBy::User;
    const auto start = platform::startProgram("Settings", by, token, [&opened](const std::string& later) {
        if (opened)
            opened->raise(later);
    });
    if (start.raisedOther)
        return EXIT_SUCCESS;
    window::WindowClock clock;
    window::WindowHost host(clock, transitionSeconds);
    if (!host.window()) {
        std::fputs("wardlock-settings: cannot create the window\n", stderr);
        return 1;
    }
    host.appearance().force(options.dark);
    host.appearance().forceTextScale(options.textScale);
    host.appearance().forceHighContrast(options.highContrast);
    host.appearance().forceReducedMotion(options.reducedMotion);
    host.rememberPlace();
    host.settings().showProblems(problems);
    host.appearance().awaitDesktop();
    host.endOnSignals();
    host.show();
    opened = &host;
    const int ended = QGuiApplication::exec();
    opened = nullptr;
    return ended;
}

} // namespace

int main(int argc, char** argv) {
    platform::prepareProcess();
    const auto options = window::Options::parse({argv + 1, argv + argc});
    if (!options.error.empty())
        return usageError(options.error);
    if (options.help)
        return std::fputs(window::Options::usage().c_str(), stdout) < 0;
    if (options.version)
        return std::puts("wardlock-settings " WARDLOCK_VERSION) < 0;
    if (!options.deviceRoot.empty())
        qputenv("WARDLOCK_DEVICE_ROOT", options.deviceRoot.c_str());
    window::chooseGraphics(options.screenshots.empty() ? window::DrawnOn::Display : window::DrawnOn::Memory);
    const std::string token = activationToken();
    displaySearch.orTerminal = options.orTerminal;
    displaySearch.activated = options.activated;
    qInstallMessageHandler(collectDisplayMessage);
    QGuiApplication application(argc, argv);
    qInstallMessageHandler(nullptr);
    defaultHandler = qInstallMessageHandler(printMessage);
    for (const QString& text : displaySearch.said)
        std::fprintf(stderr, "%s\n", qPrintable(text));
    QGuiApplication::setApplicationName(QStringLiteral("Settings"));
    QGuiApplication::setDesktopFileName(QStringLiteral("com.tavix.wardlock.Settings"));
    QGuiApplication::setWindowIcon(window::programIcon());
    const window::Translation translation;
    // The translation has none, and most languages have no translation.
    QGuiApplication::setLayoutDirection(QLocale().textDirection());

    shell::installTerminationHook(nullptr);
    // One that comes before the window is there ends the loop as soon as it runs.
    if (options.screenshots.empty())
        platform::catchStopSignals();
    const shell::Provision provision;
    if (!options.screenshots.empty())
        return window::takeScreenshots(options);
    return openWindow(options, provision.problems(), token);
}
