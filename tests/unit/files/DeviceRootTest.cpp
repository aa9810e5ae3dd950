#include "platform/files/DeviceRoot.h"

#include "tests/support/DeviceRootFixture.h"
#include "tests/support/doubles/MemoryFileSystem.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace wardlock::test {
namespace {

namespace fs = std::filesystem;
using platform::deviceRoot;
using platform::pathOnDevice;

class DeviceRoot : public DeviceRootFixture {
protected:
    ~DeviceRoot() override { platform::FileSystem::setCurrent(nullptr); }

    /// Replaces the files of this machine by these.
    MemoryFileSystem& onMachine() {
        platform::FileSystem::setCurrent(&memory_);
        return memory_;
    }

private:
    MemoryFileSystem memory_;
};

TEST_F(DeviceRoot, IsPrivateInATestAndNamedByTheEnvironment) {
    EXPECT_EQ(std::getenv("WARDLOCK_DEVICE_ROOT"), root());
    EXPECT_TRUE(exists("/var/mobile/Library/Preferences"));
    EXPECT_EQ(fs::status(std::getenv("XDG_RUNTIME_DIR")).permissions(), fs::perms::owner_all);
    EXPECT_EQ(std::getenv("DBUS_SESSION_BUS_ADDRESS"), "unix:path=" + folder() / "no-bus");
}

TEST_F(DeviceRoot, ContainsTheFilesThatATestWrote) {
    writeFile("/var/mobile/x", std::string_view("a\0b", 3));
    EXPECT_EQ(readFile("/var/mobile/x"), std::string_view("a\0b", 3));
    removeFile("/var/mobile/x");
    EXPECT_FALSE(exists("/var/mobile/x"));
}

TEST_F(DeviceRoot, IsTheFolderThatTheEnvironmentNames) {
    EXPECT_EQ(deviceRoot(), root());
    EXPECT_FALSE(platform::deviceRootIsDefault());
}

TEST_F(DeviceRoot, IsReadAgainAtEachCall) {
    environment.set("WARDLOCK_DEVICE_ROOT", "/elsewhere");
    EXPECT_EQ(deviceRoot(), "/elsewhere");
}

TEST_F(DeviceRoot, LosesTrailingSlashes) {
    environment.set("WARDLOCK_DEVICE_ROOT", root() + "//");
    EXPECT_EQ(deviceRoot(), root());
    environment.set("WARDLOCK_DEVICE_ROOT", "/");
    EXPECT_EQ(deviceRoot(), "/");
    EXPECT_FALSE(platform::deviceRootIsDefault());
}

TEST_F(DeviceRoot, IsInTheWorkingFolderWhenItsPathIsRelative) {
    environment.set("WARDLOCK_DEVICE_ROOT", "demo/");
    EXPECT_EQ(deviceRoot(), (fs::current_path() / "demo").string());
}

TEST_F(DeviceRoot, IsBesideTheFolderWhereALinkBeforeDotsLeads) {
    fs::create_directories(folder() / "elsewhere/below");
    fs::create_directory_symlink(folder() / "elsewhere/below", folder() / "link");
    environment.set("WARDLOCK_DEVICE_ROOT", folder() / "link/.././device/");
    EXPECT_EQ(deviceRoot(), folder() / "elsewhere/device");
    environment.set("WARDLOCK_DEVICE_ROOT", folder() / "link/device");
    EXPECT_EQ(deviceRoot(), folder() / "link/device");
}

TEST_F(DeviceRoot, IsBesideAFolderBeforeDotsThatDoesNotExistYet) {
    environment.set("WARDLOCK_DEVICE_ROOT", folder() / "new/inner/../../device");
    EXPECT_EQ(deviceRoot(), folder() / "device");
    environment.set("WARDLOCK_DEVICE_ROOT", "/../..");
    EXPECT_EQ(deviceRoot(), "/");
}

TEST_F(DeviceRoot, KeepsDotsAfterWhatIsNotAFolder) {
    std::ofstream(folder() / "file") << "no folder";
    fs::create_symlink("nowhere", folder() / "dangling");
    for (const std::string& path : {folder() / "file/../device", folder() / "dangling/../device"}) {
        environment.set("WARDLOCK_DEVICE_ROOT", path);
        EXPECT_EQ(deviceRoot(), path);
    }
}

TEST_F(DeviceRoot, IsTheMachineItselfOnADevice) {
    environment.unset("WARDLOCK_DEVICE_ROOT");
    onMachine().addFolder("/var/mobile");
    EXPECT_EQ(deviceRoot(), "/");
    EXPECT_TRUE(platform::deviceRootIsDefault());
    EXPECT_EQ(pathOnDevice("/var/mobile"), "/var/mobile");
}

TEST_F(DeviceRoot, IsNotTheMachineWhenAFileReplacesTheFolder) {
    environment.unset("WARDLOCK_DEVICE_ROOT");
    onMachine().addFile("/var/mobile", "");
    EXPECT_EQ(deviceRoot(), folder() / "data/wardlock/device");
}

TEST_F(DeviceRoot, IsInTheUsersDataFolderOtherwise) {
    environment.set("WARDLOCK_DEVICE_ROOT", "");
    onMachine();
    EXPECT_EQ(deviceRoot(), folder() / "data/wardlock/device");
    EXPECT_TRUE(platform::deviceRootIsDefault());
}

TEST_F(DeviceRoot, IsTheUsersOwnWhereTheEnvironmentNamesThatFolder) {
    const std::string own = folder() / "data/wardlock/device";
    for (const std::string& name : {own, own + "/", folder() / "data/../data/wardlock/./device"}) {
        environment.set("WARDLOCK_DEVICE_ROOT", name);
        EXPECT_TRUE(platform::deviceRootIsDefault()) << name;
        EXPECT_TRUE(platform::deviceRootIsFromEnvironment());
    }
    fs::create_directories(own);
    fs::create_directory_symlink(own, folder() / "link");
    environment.set("WARDLOCK_DEVICE_ROOT", folder() / "link");
    EXPECT_TRUE(platform::deviceRootIsDefault());
    environment.set("WARDLOCK_DEVICE_ROOT", folder() / "data/wardlock");
    EXPECT_FALSE(platform::deviceRootIsDefault());
}

TEST_F(DeviceRoot, IsInTheHomeFolderWithoutANamedDataFolder) {
    environment.unset("WARDLOCK_DEVICE_ROOT");
    onMachine();
    for (const char* none : {"", "relative/data"}) {
        environment.set("XDG_DATA_HOME", none);
        EXPECT_EQ(deviceRoot(), folder() / "home/.local/share/wardlock/device");
    }
}

TEST_F(DeviceRoot, IsInTheHomeFolderOfThePasswordEntryWithoutAnyVariable) {
    for (const char* name : {"WARDLOCK_DEVICE_ROOT", "XDG_DATA_HOME", "HOME"})
        environment.unset(name);
    onMachine();
    const std::string found = deviceRoot();
    EXPECT_TRUE(found.starts_with('/')) << found;
    EXPECT_TRUE(found.ends_with("/.local/share/wardlock/device")) << found;
    EXPECT_EQ(found.find("wl."), std::string::npos) << "still the private home folder: " << found;
}

TEST_F(DeviceRoot, IsPrefixedToDevicePaths) {
    EXPECT_EQ(pathOnDevice("/var/mobile/a b"), root() + "/var/mobile/a b");
    EXPECT_EQ(pathOnDevice("var/mobile"), root() + "/var/mobile");
    EXPECT_EQ(pathOnDevice("/"), root());
    EXPECT_EQ(pathOnDevice(""), root());
}

TEST_F(DeviceRoot, RemovesRepeatedSlashesAndDotsFromAPath) {
    EXPECT_EQ(pathOnDevice("//var/./mobile//x/"), root() + "/var/mobile/x");
    EXPECT_EQ(pathOnDevice("/a/...b/.c"), root() + "/a/...b/.c");
}

TEST_F(DeviceRoot, IsNotLeftByDots) {
    EXPECT_EQ(pathOnDevice("/var/../tmp/x"), root() + "/tmp/x");
    EXPECT_EQ(pathOnDevice("/../../etc/passwd"), root() + "/etc/passwd");
    environment.set("WARDLOCK_DEVICE_ROOT", "/");
    EXPECT_EQ(pathOnDevice("/../x"), "/x");
    EXPECT_EQ(pathOnDevice("/a/.."), "/");
}

} // namespace
} // namespace wardlock::test
