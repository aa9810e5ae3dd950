// Only this user's processes may listen to announcements.

#include "linux/bus/BusAddress.h"
#include "linux/bus/BusConnection.h"
#include "linux/bus/PrivateBus.h"
#include "tests/robustness/hostile/HostileFixture.h"
#include "tests/support/BuildPaths.h"
#include "tests/support/BusDaemons.h"
#include "tests/support/FewDescriptors.h"
#include "tests/support/Process.h"
#include "tests/support/TestBus.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::bus::BusConnection;

sockaddr_un addressOf(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    EXPECT_LT(path.size(), sizeof address.sun_path);
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    return address;
}

/// A socket that only listens; the product's own processes must not connect to another user's.
class Listener {
public:
    explicit Listener(const std::string& path)
        : socket_(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)) {
        const sockaddr_un address = addressOf(path);
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::chmod(path.c_str(), 0777), 0);
        EXPECT_EQ(::listen(socket_, 8), 0);
    }
    ~Listener() { ::close(socket_); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Whether a process has connected since the last call.
    bool wasVisited() const {
        const int visitor = ::accept4(socket_, nullptr, nullptr, SOCK_CLOEXEC);
        if (visitor < 0)
            return false;
        ::close(visitor);
        return true;
    }

private:
    int socket_;
};

/// No bus is named. PATH leads to no daemon, where a test does not start one itself.
class Bus : public HostileFixture {
protected:
    Bus() { environment.unset("DBUS_SESSION_BUS_ADDRESS"); }
    ~Bus() override {
        for (const int daemon : busDaemonsOf(busFolder()))
            endBusDaemon(daemon);
    }

    std::string runtime() const { return folder() / "run"; }
    std::string busFolder() const { return runtime() + "/wardlock-bus"; }
    void makeBusFolder(unsigned mode) const {
        fs::create_directory(busFolder());
        fs::permissions(busFolder(), static_cast<fs::perms>(mode));
    }
    /// Posts from another process, which finds no daemon to start.
    static void post() {
        ProcessSetup setup;
        setup.environment["PATH"] = "/nonexistent";
        EXPECT_EQ(runProcess(programFolder() + "/test-poster", {"N"}, setup).exitCode, 0);
    }

    void startDaemon() const {
        ASSERT_EQ(platform::bus::PrivateBus(busFolder()).start(), platform::bus::PrivateBus::Start::Running);
    }
    int connected() const {
        const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const sockaddr_un address = addressOf(busFolder() + "/bus");
        if (::connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return socket;
        const int error = errno;
        ::close(socket);
        errno = error;
        return -1;
    }
    /// 0 when the bus lets this process in; EPERM when it refuses.
    int entered() const {
        using namespace std::chrono_literals;
        const auto bus = BusConnection::open(platform::bus::busAddressOfSocket(busFolder() + "/bus"),
                                             BusConnection::Peer::Any);
        if (!bus)
            return ECONNREFUSED;
        const auto deadline = BusConnection::Clock::now() + 20s;
        while (!bus->isReady() && !bus->isLost()) {
            bus->process();
            if (!bus->isReady() && !bus->isLost() && !bus->wait(deadline))
                return ETIMEDOUT;
        }
        return bus->isReady() ? 0 : EPERM;
    }
};

TEST_F(Bus, CannotBeReachedByOtherUsers) {
    SKIP_WITHOUT_OTHER_USER();
    letOthersIn();
    startDaemon();
    EXPECT_EQ(entered(), 0);
    EXPECT_EQ(OtherUser::does([this] { return connected() < 0 ? errno : 0; }), EACCES);
    EXPECT_EQ(OtherUser::reads(busFolder() + "/bus.conf"), EACCES);
}

TEST_F(Bus, RefusesOtherUsersEvenWhenItsFolderIsOpen) {
    SKIP_WITHOUT_OTHER_USER();
    startDaemon();
    letOthersIn();
    ASSERT_EQ(OtherUser::does([this] { return connected() < 0 ? errno : 0; }), 0)
        << "the socket can be reached";
    EXPECT_EQ(OtherUser::does([this] { return entered(); }), EPERM);
}

TEST_F(Bus, IsNotReplacedByAProcessShortOfDescriptors) {
    startDaemon();
    for (rlim_t left = 0; left <= 2; ++left) {
        const FewDescriptors few(left);
        // One is the lock's; none is left to ask whether a bus listens.
        EXPECT_EQ(platform::bus::PrivateBus(busFolder()).start() == platform::bus::PrivateBus::Start::Running,
                  left == 2);
    }
    EXPECT_EQ(entered(), 0);
    EXPECT_EQ(busDaemonsOf(busFolder()).size(), 1U);
}

TEST_F(Bus, IsUsedInAFolderOfTheSameUser) {
    makeBusFolder(0700);
    const Listener listener(busFolder() + "/bus");
    post();
    EXPECT_TRUE(listener.wasVisited()) << "or the tests below would prove nothing";
}

TEST_F(Bus, IsNotUsedInAFolderOfAnotherUser) {
    SKIP_WITHOUT_OTHER_USER();
    makeBusFolder(0700);
    const Listener listener(busFolder() + "/bus");
    OtherUser::give(busFolder());
    post();
    EXPECT_FALSE(listener.wasVisited());
}

TEST_F(Bus, IsNotUsedInAFolderThatOthersMayEnter) {
    makeBusFolder(0755);
    const Listener listener(busFolder() + "/bus");
    post();
    EXPECT_FALSE(listener.wasVisited());
}

TEST_F(Bus, IsNotUsedBehindALinkThatReplacesItsFolder) {
    const std::string elsewhere = folder() / "elsewhere";
    fs::create_directory(elsewhere);
    fs::permissions(elsewhere, fs::perms::owner_all);
    fs::create_directory_symlink(elsewhere, busFolder());
    const Listener listener(elsewhere + "/bus");
    post();
    EXPECT_FALSE(listener.wasVisited());
}

TEST_F(Bus, IsRefusedWhenAnotherUserListensAtItsSocket) {
    SKIP_WITHOUT_OTHER_USER();
    fs::permissions(folder().path(), fs::perms::all);
    const std::string path = folder() / "foreign";
    const std::string address = platform::bus::busAddressOfSocket(path);
    // The kernel remembers who began to listen.
    ASSERT_EQ(::seteuid(OtherUser::id()), 0);
    const Listener listener(path);
    ASSERT_EQ(::seteuid(0), 0);
    EXPECT_NE(BusConnection::open(address, BusConnection::Peer::Any), nullptr);
    EXPECT_EQ(BusConnection::open(address, BusConnection::Peer::OwnUser), nullptr);
}

TEST_F(Bus, IsNotUsedInARuntimeFolderThatOthersCanChange) {
    const TestBus bus;
    fs::create_symlink(bus.address().substr(std::string("unix:path=").size()), runtime() + "/bus");
    ASSERT_EQ(platform::bus::busAddress().text, platform::bus::busAddressOfSocket(runtime() + "/bus"));
    for (const unsigned mode : {0770u, 0702u, 01777u}) {
        fs::permissions(runtime(), static_cast<fs::perms>(mode));
        EXPECT_EQ(platform::bus::busAddress().text.find(runtime()), std::string::npos) << std::oct << mode;
    }
}

} // namespace
} // namespace wardlock::test
