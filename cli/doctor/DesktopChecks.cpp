// The checks of what Settings uses on this machine: bus, window, web engine, fonts, mail.

#include "cli/command/WindowProgram.h"
#include "cli/doctor/CheckResult.h"
#include "cli/doctor/FontFolders.h"
#include "cli/doctor/WebEngineFolders.h"
#include "cli/io/ShellWord.h"
#include "platform/files/DeviceRoot.h"
#include "platform/services/HostStatus.h"
#include "platform/services/MailService.h"

namespace wardlock::cli {

namespace {

using platform::BusState;
using platform::MailRouteKind;
using Condition = platform::BusState::Condition;

/// The font family of the window; the same as in window/items/Theme.h.
constexpr std::string_view windowFont = "Inter";

std::string nameOf(const BusState& bus) {
    switch (bus.kind) {
    case BusState::Kind::Named:
        return "the bus in DBUS_SESSION_BUS_ADDRESS (" + bus.address + ")";
    case BusState::Kind::User:
        return "the bus of your session (" + bus.address + ")";
    case BusState::Kind::Private:
        break;
    }
    return "the private bus of Wardlock (" + bus.address + ")";
}

std::string_view factOf(BusState::Kind kind) {
    switch (kind) {
    case BusState::Kind::Named:
        return "named";
    case BusState::Kind::User:
        return "user";
    case BusState::Kind::Private:
        break;
    }
    return "own";
}

} // namespace

CheckResult checkBus() {
    const BusState bus = platform::busState();
    CheckResult result("bus", "Bus");
    result.text = nameOf(bus) + " is running";
    result.facts["kind"] = factOf(bus.kind);
    result.facts["address"] = bus.address;
    switch (bus.condition) {
    case Condition::Reachable:
        break;
    case Condition::NotStarted:
        result.text = nameOf(bus) + " starts with the first process that needs it";
        break;
    case Condition::Unreachable:
        result.fails(nameOf(bus) + " cannot be reached",
                     bus.kind == BusState::Kind::Named
                         ? "Log out and in again, or unset DBUS_SESSION_BUS_ADDRESS: Wardlock then finds "
                           "or starts a bus."
                         : "Log out and in again.");
        break;
    case Condition::NoDaemon:
        result.fails(nameOf(bus) + " cannot be started", "Install the package dbus-daemon.");
        break;
    case Condition::Distrusted:
        result.fails(nameOf(bus) +
                         " cannot be used; its folder cannot be created, or other users have access to it",
                     "Remove " + bus.privateFolder + ", or deny access to other users: chmod 700 " +
                         shellWord(bus.privateFolder));
        break;
    }
    if (!result.works)
        result.advice.emplace_back("Until then, changes are stored but other processes are not notified.");
    return result;
}

CheckResult checkWindow() {
    CheckResult result("window", "Window", CheckResult::Need::Optional);
    const std::string program = windowProgramPath();
    result.facts["program"] = program.empty() ? Json() : Json(program);
    result.facts["display"] = hasDisplay();
    if (program.empty())
        return result.fails("the program wardlock-settings is not installed beside this one",
                            "Settings opens in the terminal. To get the window, install all of Wardlock.");
    if (!hasDisplay())
        return result.fails("there is no display",
                            "Settings opens in the terminal; the window needs DISPLAY or WAYLAND_DISPLAY.");
    result.text = program;
    return result;
}

CheckResult checkWebEngine() {
    CheckResult result("webEngine", "Web engine", CheckResult::Need::Optional);
    const std::string folder = webEngineFolder(qmlFolders());
    result.facts["path"] = folder.empty() ? Json() : Json(folder);
    result.text = folder;
    if (folder.empty())
        result.fails("the window has no web engine; \"More From Tavix\" shows the text of the page",
                     "Install the package qml6-module-qtwebengine to see it as a browser shows it.");
    return result;
}

CheckResult checkFonts() {
    CheckResult result("fonts", "Font", CheckResult::Need::Optional);
    const std::string file = fontFile(windowFont, fontFolders());
    result.facts["family"] = windowFont;
    result.facts["path"] = file.empty() ? Json() : Json(file);
    result.text = file;
    if (file.empty())
        result.fails("the font " + std::string(windowFont) + " is not installed; the window uses another one",
                     "Install the package fonts-inter.");
    return result;
}

CheckResult checkPortal() {
    CheckResult result("portal", "Contrast", CheckResult::Need::Optional);
    const auto contrast = platform::portalReportsContrast();
    result.facts["contrast"] = contrast ? Json(*contrast) : Json();
    result.text = "the desktop portal reports it";
    if (!contrast)
        result.fails("no desktop portal reports settings; the window does not follow the desktop's contrast",
                     "Install xdg-desktop-portal and the portal of your desktop.");
    else if (!*contrast)
        result.fails(
            "the desktop portal does not report it; the window does not follow the desktop's contrast",
            "Update the portal of your desktop.");
    return result;
}

CheckResult checkMail() {
    CheckResult result("mail", "Support mail", CheckResult::Need::Optional);
    switch (platform::firstMailRoute()) {
    case MailRouteKind::Portal:
        result.text = "opens in your mail program through the desktop portal";
        result.facts["route"] = "portal";
        break;
    case MailRouteKind::Program:
        result.text = "opens in your mail program through xdg-email";
        result.facts["route"] = "program";
        break;
    case MailRouteKind::Outbox:
        result.text = "saved in " + platform::pathOnDevice(platform::mailOutboxPath);
        result.facts["route"] = "outbox";
        break;
    case MailRouteKind::None:
        result.facts["route"] = nullptr;
        result.fails("cannot be sent; the row for support mail does nothing",
                     "Set up a mail program and install xdg-utils, or create an outbox folder: mkdir -p " +
                         shellWord(platform::pathOnDevice(platform::mailOutboxPath)));
        break;
    }
    return result;
}

} // namespace wardlock::cli
