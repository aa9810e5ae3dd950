#include "tests/support/ModuleFixture.h"

#include "tests/support/BuildPaths.h"

#include <filesystem>

namespace wardlock::test {

namespace fs = std::filesystem;

void ModuleFixture::putModule(std::string_view name, std::string_view devicePath) const {
    const fs::path file = onDisk(devicePath);
    fs::create_directories(file.parent_path());
    fs::permissions(file.parent_path(), fs::perms::owner_all);
    fs::copy_file(fs::path(testModulesFolder()) / (std::string(name) + ".so"), file);
    fs::permissions(file, fs::perms::owner_all);
}

void ModuleFixture::putBundle(std::string_view devicePath, std::string_view entries) const {
    writeFile(std::string(devicePath) + "/Info.plist",
              "<plist version=\"1.0\"><dict>" + std::string(entries) + "</dict></plist>");
    setMode(devicePath, 0700);
}

void ModuleFixture::setMode(std::string_view devicePath, unsigned mode) const {
    fs::permissions(onDisk(devicePath), static_cast<fs::perms>(mode));
}

} // namespace wardlock::test
