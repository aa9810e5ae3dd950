#include "shell/device/InstalledFiles.h"

#include <filesystem>
#include <system_error>

namespace wardlock::shell {

namespace fs = std::filesystem;

namespace {

/// Returns the folder `below`, relative to the parent of the program's own folder; empty where it does not
/// contain `file`.
std::string folderWith(const char* file, const fs::path& below) {
    std::error_code error;
    const fs::path program = fs::canonical("/proc/self/exe", error);
    const fs::path folder = program.parent_path().parent_path() / below;
    return !error && fs::exists(folder / file, error) ? folder.string() : std::string();
}

} // namespace

std::string installedFolder() {
    const std::string folder = folderWith("PreferenceBundles", "lib/wardlock");
    return folder.empty() ? folderWith("PreferenceBundles", WARDLOCK_LIBRARY_FOLDER "/wardlock") : folder;
}

std::string installedAppList() {
    const std::string folder = installedFolder();
    return folder.empty() ? folder : folder + "/DynamicLibraries/AppList.dylib";
}

std::string installedPages() {
    return folderWith("index.md", WARDLOCK_PAGES_FOLDER);
}

} // namespace wardlock::shell
