#include "platform/services/HostStatus.h"

#include "linux/bus/BusAddress.h"
#include "linux/bus/BusConnection.h"
#include "linux/mail/LinuxMailService.h"
#include "linux/mail/MailOutbox.h"
#include "linux/mail/MailPortal.h"
#include "linux/mail/MailProgram.h"
#include "linux/posix/PrivateFolder.h"
#include "linux/posix/Program.h"
#include "platform/files/FileSystem.h"

#include <chrono>
#include <memory>
#include <unistd.h>

namespace platform {

namespace {

using Clock = bus::BusConnection::Clock;

/// Long enough that a busy bus does not count as broken.
constexpr std::chrono::seconds patience{6};

bool letsUsIn(const std::string& address, bus::BusConnection::Peer peer) {
    const auto connection = bus::BusConnection::open(address, peer);
    const auto deadline = Clock::now() + patience;
    while (connection && !connection->isReady() && !connection->isLost()) {
        connection->process();
        if (!connection->isReady() && !connection->isLost() && !connection->wait(deadline))
            return false;
    }
    return connection && connection->isReady();
}

bool canBePrivateFolder(const std::string& path) {
    FileStatus status;
    if (FileSystem::current().status(path, Links::Keep, status) == std::errc::no_such_file_or_directory)
        return mayWrite(folderOf(path));
    return posix::isPrivateFolder(path);
}

BusState::Condition conditionOf(const bus::BusAddress& address) {
    using enum BusState::Condition;
    if (address.ownFolder.empty())
        return letsUsIn(address.text, bus::BusConnection::Peer::Any) ? Answers : Unreachable;
    if (!canBePrivateFolder(address.ownFolder))
        return Distrusted;
    if (letsUsIn(address.text, bus::BusConnection::Peer::OwnUser))
        return Answers;
    return posix::findProgram("dbus-daemon") ? NotStarted : NoDaemon;
}

} // namespace

BusState busState() {
    const bus::BusAddress address = bus::busAddress();
    BusState state;
    if (!address.ownFolder.empty())
        state.kind = BusState::Kind::Own;
    else if (!address.isNamed)
        state.kind = BusState::Kind::User;
    state.condition = conditionOf(address);
    state.address = address.text;
    state.ownFolder = address.ownFolder;
    return state;
}

MailWay mailWay() {
    if (mail::opensInTime(std::make_shared<mail::MailPortal>()))
        return MailWay::Portal;
    if (mail::opensInTime(std::make_shared<mail::MailProgram>()))
        return MailWay::Program;
    return mail::opensInTime(std::make_shared<mail::MailOutbox>()) ? MailWay::Outbox : MailWay::None;
}

bool mayWrite(const std::string& path) {
    return ::access(path.c_str(), W_OK) == 0;
}

} // namespace platform
