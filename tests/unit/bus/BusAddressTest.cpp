#include "linux/bus/BusAddress.h"

#include "tests/support/DeviceRootFixture.h"
#include "tests/support/TestBus.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace wardlock::test {
namespace {

using platform::bus::busAddress;

/// No session bus is named; the run-time folder is the test's own.
class BusAddress : public DeviceRootFixture {
protected:
    BusAddress() { environment.unset("DBUS_SESSION_BUS_ADDRESS"); }

    std::string runtime() const { return folder() / "run"; }
    static std::string folderBelowTmp() { return "/tmp/wardlock-bus-" + std::to_string(geteuid()); }
};

TEST_F(BusAddress, IsTheAddressThatTheSessionNames) {
    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=/a;unix:path=/b");
    EXPECT_EQ(busAddress().text, "unix:path=/a;unix:path=/b");
    EXPECT_EQ(busAddress().privateFolder, "");
}

TEST_F(BusAddress, IsTheUsersBusWhereItExists) {
    const TestBus bus;
    std::filesystem::create_symlink(bus.address().substr(std::string("unix:path=").size()),
                                    runtime() + "/bus");
    EXPECT_EQ(busAddress().text, "unix:path=" + runtime() + "/bus");
    EXPECT_EQ(busAddress().privateFolder, "");
}

TEST_F(BusAddress, IsPrivateInTheRuntimeFolderOtherwise) {
    EXPECT_EQ(busAddress().text, "unix:path=" + runtime() + "/wardlock-bus/bus");
    EXPECT_EQ(busAddress().privateFolder, runtime() + "/wardlock-bus");
}

TEST_F(BusAddress, TreatsAnEmptyNameAsMissing) {
    environment.set("DBUS_SESSION_BUS_ADDRESS", "");
    EXPECT_EQ(busAddress().privateFolder, runtime() + "/wardlock-bus");
}

TEST_F(BusAddress, DoesNotAcceptAPlainFileAsTheUsersBus) {
    std::ofstream(runtime() + "/bus") << "not a socket";
    EXPECT_EQ(busAddress().privateFolder, runtime() + "/wardlock-bus");
}

TEST_F(BusAddress, IsPrivateBelowTmpWithoutARuntimeFolder) {
    environment.unset("XDG_RUNTIME_DIR");
    EXPECT_EQ(busAddress().privateFolder, folderBelowTmp());
    EXPECT_EQ(busAddress().text, "unix:path=" + folderBelowTmp() + "/bus");
    for (const std::string& unusable : {std::string("run"), runtime() + "/missing"}) {
        environment.set("XDG_RUNTIME_DIR", unusable);
        EXPECT_EQ(busAddress().privateFolder, folderBelowTmp()) << unusable;
    }
}

TEST_F(BusAddress, IsPrivateBelowTmpWhenTheRuntimeFoldersNameIsTooLongForASocket) {
    const std::string socket = "/wardlock-bus/bus";
    const std::string runtime = folder() / std::string(107 - socket.size() - folder().path().size() - 1, 'x');
    for (const std::string& path : {runtime, runtime + 'x'}) {
        std::filesystem::create_directory(path);
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        environment.set("XDG_RUNTIME_DIR", path);
        const bool fits = path == runtime;
        EXPECT_EQ(busAddress().privateFolder, fits ? path + "/wardlock-bus" : folderBelowTmp());
    }
}

TEST(SocketAddress, EscapesCharactersThatAnAddressCannotContain) {
    EXPECT_EQ(platform::bus::busAddressOfSocket("/a b,c;d=e%\xc3\xa4:'-_.*"),
              "unix:path=/a%20b%2cc%3bd%3de%25%c3%a4%3a%27-_.*");
}

} // namespace
} // namespace wardlock::test
