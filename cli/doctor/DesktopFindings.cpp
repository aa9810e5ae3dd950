// What the doctor finds around Settings on this machine: bus, window, web engine, fonts, mail.

#include "cli/command/WindowProgram.h"
#include "cli/doctor/Finding.h"
#include "cli/doctor/FontFolders.h"
#include "cli/doctor/WebEngineFolders.h"
#include "cli/io/ShellWord.h"
#include "platform/files/DeviceRoot.h"
#include "platform/services/HostStatus.h"
#include "platform/services/SystemMailService.h"

namespace wardlock::cli {

namespace {

using platform::BusState;
using platform::MailWay;
using Condition = platform::BusState::Condition;

/// The family the window asks for; window/items/Theme.h has it too.
constexpr std::string_view windowFont = "Inter";

std::string nameOf(const BusState& bus) {
    switch (bus.kind) {
    case BusState::Kind::Named:
        return "the bus that DBUS_SESSION_BUS_ADDRESS names (" + bus.address + ")";
    case BusState::Kind::User:
        return "your session's bus (" + bus.address + ")";
    case BusState::Kind::Own:
        break;
    }
    return "Wardlock's own bus (" + bus.address + ")";
}

std::string_view factOf(BusState::Kind kind) {
    switch (kind) {
    case BusState::Kind::Named:
        return "named";
    case BusState::Kind::User:
        return "user";
    case BusState::Kind::Own:
        break;
    }
    return "own";
}

} // namespace

Finding lookAtBus() {
    const BusState bus = platform::busState();
    Finding finding("bus", "Bus");
    finding.text = nameOf(bus) + " answers";
    finding.facts["kind"] = factOf(bus.kind);
    finding.facts["address"] = bus.address;
    switch (bus.condition) {
    case Condition::Answers:
        break;
    case Condition::NotStarted:
        finding.text = nameOf(bus) + " is started by the first process that needs it";
        break;
    case Condition::Unreachable:
        finding.fails(nameOf(bus) + " does not answer",
                      bus.kind == BusState::Kind::Named
                          ? "Log in to the session anew, or unset DBUS_SESSION_BUS_ADDRESS: Wardlock then "
                            "finds or starts a bus."
                          : "Log in to the session anew.");
        break;
    case Condition::NoDaemon:
        finding.fails(nameOf(bus) + " cannot be started", "Install the package dbus-daemon.");
        break;
    case Condition::Distrusted:
        finding.fails(nameOf(bus) + " cannot be used: its folder cannot be made, or is open to others",
                      "Remove " + bus.ownFolder + ", or make it yours alone: chmod 700 " +
                          shellWord(bus.ownFolder));
        break;
    }
    if (!finding.works)
        finding.advice.emplace_back(
            "Until then changes are stored, but other processes do not hear of them.");
    return finding;
}

Finding lookAtWindow() {
    Finding finding("window", "Window", Finding::Need::Optional);
    const std::string program = windowProgramPath();
    finding.facts["program"] = program.empty() ? Json() : Json(program);
    finding.facts["display"] = hasDisplay();
    if (program.empty())
        return finding.fails("the program wardlock-settings does not stand beside this one",
                             "Settings opens in the terminal. For the window, install all of Wardlock.");
    if (!hasDisplay())
        return finding.fails("there is no display",
                             "Settings opens in the terminal; the window needs DISPLAY or WAYLAND_DISPLAY.");
    finding.text = program;
    return finding;
}

Finding lookAtWebEngine() {
    Finding finding("webEngine", "Web engine", Finding::Need::Optional);
    const std::string folder = webEngineFolder(qmlFolders());
    finding.facts["path"] = folder.empty() ? Json() : Json(folder);
    finding.text = folder;
    if (folder.empty())
        finding.fails("the window has no web engine: \"More From Tavix\" offers your browser instead",
                      "Install the package qml6-module-qtwebengine to see that page in the window.");
    return finding;
}

Finding lookAtFonts() {
    Finding finding("fonts", "Font", Finding::Need::Optional);
    const std::string file = fontFile(windowFont, fontFolders());
    finding.facts["family"] = windowFont;
    finding.facts["path"] = file.empty() ? Json() : Json(file);
    finding.text = file;
    if (file.empty())
        finding.fails("the window's font, " + std::string(windowFont) +
                          ", is not installed: another one is used",
                      "Install the package fonts-inter.");
    return finding;
}

Finding lookAtMail() {
    Finding finding("mail", "Support mail", Finding::Need::Optional);
    switch (platform::mailWay()) {
    case MailWay::Portal:
        finding.text = "goes to the mail program that the desktop's portal offers";
        finding.facts["route"] = "portal";
        break;
    case MailWay::Program:
        finding.text = "goes to your mail program, through xdg-email";
        finding.facts["route"] = "program";
        break;
    case MailWay::Outbox:
        finding.text = "is saved in " + platform::pathOnDevice(platform::mailOutboxPath);
        finding.facts["route"] = "outbox";
        break;
    case MailWay::None:
        finding.facts["route"] = nullptr;
        finding.fails("cannot leave this machine: the row of the support mail does nothing",
                      "Set up a mail program and install xdg-utils, or make an outbox folder: mkdir -p " +
                          shellWord(platform::pathOnDevice(platform::mailOutboxPath)));
        break;
    }
    return finding;
}

} // namespace wardlock::cli
