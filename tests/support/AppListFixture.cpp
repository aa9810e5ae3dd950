#include "tests/support/AppListFixture.h"

#include "platform/runtime/Class.h"
#include "tests/support/BuildPaths.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace wardlock::test {

namespace fs = std::filesystem;

AppListFixture::AppListFixture() {
    environment.set("XDG_DATA_DIRS", dataFolder());
    environment.set("XDG_CONFIG_DIRS", folder() / "config");
    environment.unset("XDG_CURRENT_DESKTOP");
    environment.unset("LANGUAGE");
    environment.set("LC_ALL", "C");
}

platform::ALApplicationList& AppListFixture::list() {
    if (list_)
        return *list_;
    void* module = ::dlopen(appListModule().c_str(), RTLD_NOW | RTLD_NODELETE);
    if (!module)
        throw std::runtime_error(::dlerror());
    const auto entry =
        reinterpret_cast<platform::ClassTable (*)()>(::dlsym(module, platform::classTableEntry));
    for (const platform::Class* offered : entry()) {
        auto* methods = offered->classMethods<platform::ALApplicationListClass>();
        if (offered->name() == "ALApplicationList" && methods)
            list_ = &methods->sharedApplicationList();
    }
    if (!list_)
        throw std::runtime_error("the library offers no ALApplicationList");
    return *list_;
}

std::optional<std::string> AppListFixture::nameOf(std::string_view identifier) {
    const platform::Dictionary names = list().applications();
    const platform::Value* name = names.find(identifier);
    return name ? std::optional<std::string>(name->string()) : std::nullopt;
}

std::string AppListFixture::iconOf(std::string_view identifier, int size) {
    const auto icon = list().iconOfSize(size, identifier);
    return icon ? fs::path(icon->path()).filename().string() : "";
}

void AppListFixture::install(const std::string& deviceFolder, std::string_view identifier,
                             std::string_view name, std::string_view more) const {
    std::string info = "<plist version=\"1.0\"><dict><key>CFBundleIdentifier</key><string>";
    info.append(identifier).append("</string><key>CFBundleDisplayName</key><string>").append(name);
    info.append("</string>").append(more).append("</dict></plist>");
    writeFile(deviceFolder + "/Info.plist", info);
}

void AppListFixture::useOwnRoot() {
    environment.unset("WARDLOCK_DEVICE_ROOT");
}

void AppListFixture::writeDesktop(const std::string& path, std::string_view bytes) const {
    const fs::path file = fs::path(dataFolder()) / path;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
}

void AppListFixture::writeEntry(const std::string& name, std::string_view lines) const {
    writeDesktop("applications/" + name,
                 "[Desktop Entry]\nType=Application\nExec=true\n" + std::string(lines));
}

std::string AppListFixture::png(unsigned side) {
    std::string bytes("\x89PNG\r\n\x1a\n\0\0\0\x0dIHDR", 16);
    for (int dimension = 0; dimension < 2; ++dimension)
        for (const int shift : {24, 16, 8, 0})
            bytes.push_back(static_cast<char>(side >> shift));
    return bytes;
}

} // namespace wardlock::test
