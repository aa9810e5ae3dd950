#include "linux/bus/PrivateBus.h"

#include "linux/bus/BusAddress.h"
#include "linux/posix/FileDescriptor.h"
#include "linux/posix/PosixFileSystem.h"
#include "linux/posix/PrivateFolder.h"
#include "linux/posix/Program.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace platform::bus {

namespace {

using namespace std::chrono_literals;

/// The time until the daemon listens, on a busy machine; one that cannot start reports it at once.
constexpr auto startTime = 3000ms;

/// Only this user may connect; otherwise a session bus's rules and limits.
constexpr std::string_view configuration =
    R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <listen>@ADDRESS@</listen>
  <auth>EXTERNAL</auth>
  <keep_umask/>
  <policy context="default">
    <deny user="*"/>
    <allow user="@USER@"/>
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
  <limit name="max_incoming_bytes">1000000000</limit>
  <limit name="max_outgoing_bytes">1000000000</limit>
  <limit name="max_message_size">134217728</limit>
  <limit name="max_completed_connections">10000</limit>
  <limit name="max_incomplete_connections">1000</limit>
  <limit name="max_connections_per_user">10000</limit>
</busconfig>
)";

void replace(std::string& text, std::string_view placeholder, std::string_view by) {
    text.replace(text.find(placeholder), placeholder.size(), by);
}

enum class Listener { None, Some, Unknown };

/// Returns whether a process listens at the socket, however busy it is.
Listener listenerAt(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path)
        return Listener::Unknown;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    const posix::FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!socket)
        return Listener::Unknown;
    if (connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ||
        errno == EAGAIN)
        return Listener::Some;
    return errno == ENOENT || errno == ECONNREFUSED ? Listener::None : Listener::Unknown;
}

} // namespace

bool PrivateBus::folderIsPrivate() const {
    return posix::preparePrivateFolder(folder_);
}

PrivateBus::Start PrivateBus::start() const {
    if (!folderIsPrivate())
        return Start::Failed;
    const posix::FileDescriptor lock(
        open((folder_ + "/lock").c_str(), O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!lock)
        return Start::Failed;
    if (flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        return errno == EWOULDBLOCK ? Start::StartedByOther : Start::Failed;
    const Listener listener = listenerAt(socketPath());
    // A process that has run out of descriptors must not take the bus away from all others.
    if (listener != Listener::None)
        return listener == Listener::Some ? Start::Running : Start::Failed;
    unlink(socketPath().c_str());
    // The daemon goes into the background once it listens.
    if (!writeConfiguration())
        return Start::Failed;
    switch (posix::startDaemon(
        {"dbus-daemon", "--config-file=" + configurationPath(), "--fork", "--nopidfile", "--nosyslog"},
        startTime)) {
    case posix::DaemonStart::Succeeded:
        return Start::Running;
    case posix::DaemonStart::TimedOut:
        return Start::TimedOut;
    case posix::DaemonStart::Failed:
        break;
    }
    return Start::Failed;
}

bool PrivateBus::writeConfiguration() const {
    char digits[20];
    const auto end = std::to_chars(digits, digits + sizeof digits, geteuid()).ptr;
    std::string text(configuration);
    // In its escaped form the address needs no escaping for XML.
    replace(text, "@ADDRESS@", busAddressOfSocket(socketPath()));
    replace(text, "@USER@", std::string_view(digits, static_cast<std::size_t>(end - digits)));
    const posix::FileDescriptor file(open(configurationPath().c_str(),
                                          O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC,
                                          S_IRUSR | S_IWUSR));
    posix::PosixFileSystem files;
    return file && !writeAll(files, file.get(), text);
}

} // namespace platform::bus
