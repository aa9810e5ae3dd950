#include "platform/services/HostStatus.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/BusConnection.h"
#include "linux/mail/LinuxMailService.h"
#include "linux/mail/MailOutbox.h"
#include "linux/mail/MailPortal.h"
#include "linux/mail/MailProgram.h"
#include "linux/posix/PrivateFolder.h"
#include "linux/posix/Program.h"
#include "linux/system/AppearancePortal.h"
#include "platform/files/FileSystem.h"

#include <chrono>
#include <memory>
#include <unistd.h>

namespace platform {

namespace {

using Clock = bus::BusConnection::Clock;

/// Long enough that a busy bus does not count as broken.
constexpr std::chrono::seconds timeout{6};

bool acceptsConnection(const std::string& address, bus::BusConnection::Peer peer) {
    return bus::BusConnection::openReady(address, peer, Clock::now() + timeout) != nullptr;
}

bool canBePrivateFolder(const std::string& path) {
    FileStatus status;
    if (FileSystem::current().status(path, Links::NoFollow, status) == std::errc::no_such_file_or_directory)
        return mayWrite(folderOf(path));
    return posix::isPrivateFolder(path);
}

BusState::Condition conditionOf(const bus::BusAddress& address) {
    using enum BusState::Condition;
    if (address.privateFolder.empty())
        return acceptsConnection(address.text, bus::BusConnection::Peer::Any) ? Reachable : Unreachable;
    if (!canBePrivateFolder(address.privateFolder))
        return Distrusted;
    if (acceptsConnection(address.text, bus::BusConnection::Peer::OwnUser))
        return Reachable;
    return posix::findProgram("dbus-daemon") ? NotStarted : NoDaemon;
}

} // namespace

BusState busState() {
    const bus::BusAddress address = bus::busAddress();
    BusState state;
    if (!address.privateFolder.empty())
        state.kind = BusState::Kind::Private;
    else if (!address.isNamed)
        state.kind = BusState::Kind::User;
    state.condition = conditionOf(address);
    state.address = address.text;
    state.privateFolder = address.privateFolder;
    return state;
}

MailRouteKind firstMailRoute() {
    if (mail::oneOpensInTime({std::make_shared<mail::MailPortal>()}))
        return MailRouteKind::Portal;
    if (mail::oneOpensInTime({std::make_shared<mail::MailProgram>()}))
        return MailRouteKind::Program;
    return mail::oneOpensInTime({std::make_shared<mail::MailOutbox>()}) ? MailRouteKind::Outbox
                                                                        : MailRouteKind::None;
}

std::optional<bool> portalReportsContrast() {
    system::AppearancePortal portal([] {});
    return portal.waitForFirstReport(timeout) ? portal.reportsContrast() : std::nullopt;
}

bool mayWrite(const std::string& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

} // namespace platform
