#include "tests/support/DeviceRootFixture.h"

#include "tests/support/BuildPaths.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace wardlock::test {

namespace fs = std::filesystem;

DeviceRootFixture::DeviceRootFixture() : root_(folder_ / "device") {
    for (const char* below : {"/var/mobile/Library/Preferences", "/tmp", "/Applications",
                              "/Library/MobileSubstrate/DynamicLibraries"})
        makeFolder(below);
    for (const char* name : {"home", "data", "config", "cache", "run"}) {
        fs::create_directory(folder_ / name);
        fs::permissions(folder_ / name, fs::perms::owner_all);
    }
    environment.set("WARDLOCK_DEVICE_ROOT", root_);
    environment.set("HOME", folder_ / "home");
    environment.set("XDG_DATA_HOME", folder_ / "data");
    environment.set("XDG_CONFIG_HOME", folder_ / "config");
    environment.set("XDG_CACHE_HOME", folder_ / "cache");
    environment.set("XDG_RUNTIME_DIR", folder_ / "run");
    environment.set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder_ / "no-bus");
}

DeviceRootFixture::~DeviceRootFixture() = default;

std::string DeviceRootFixture::onDisk(std::string_view devicePath) const {
    return root_ + std::string(devicePath);
}

void DeviceRootFixture::writeFile(std::string_view devicePath, std::string_view bytes) const {
    const fs::path path = onDisk(devicePath);
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    EXPECT_TRUE(file.good()) << "cannot write " << path;
}

std::string DeviceRootFixture::readFile(std::string_view devicePath) const {
    std::ifstream file(onDisk(devicePath), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << "cannot read " << onDisk(devicePath);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool DeviceRootFixture::exists(std::string_view devicePath) const {
    return fs::symlink_status(onDisk(devicePath)).type() != fs::file_type::not_found;
}

void DeviceRootFixture::removeFile(std::string_view devicePath) const {
    fs::remove_all(onDisk(devicePath));
}

void DeviceRootFixture::makeFolder(std::string_view devicePath) const {
    fs::create_directories(onDisk(devicePath));
}

void DeviceRootFixture::installFixtureBundle() const {
    makeFolder("/Library/PreferenceBundles");
    fs::create_directory_symlink(fs::path(testModulesFolder()) / "Fixture.bundle",
                                 onDisk("/Library/PreferenceBundles/Fixture.bundle"));
}

} // namespace wardlock::test
