#include "shell/Provision.h"

#include "platform/foundation/DeviceRoot.h"
#include "platform/foundation/DynamicLibrary.h"
#include "platform/foundation/FileSystem.h"
#include "platform/services/ALApplicationList.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "settings/Settings.h"
#include "shell/BundleList.h"
#include "shell/InstalledFiles.h"

#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace wardlock::shell {

namespace fs = std::filesystem;

namespace {

constexpr std::array deviceFolders{
    "/Applications", "/Library/MobileSubstrate/DynamicLibraries", preferenceBundlesPath,
    "/tmp",          "/var/mobile/Library/Preferences",
};

constexpr unsigned privateMode = 0700;
constexpr const char* appListModule = "AppList.dylib";

} // namespace

Provision::Provision(const std::function<void()>& furnish) {
    if (platform::deviceRoot() != "/")
        makeWhatIsMissing(furnish);
    lookAtAppList();
}

void Provision::makeWhatIsMissing(const std::function<void()>& furnish) {
    makeFolders();
    const std::string installed = installedFolder();
    if (installed.empty()) {
        problems_.push_back("The settings bundle was not found beside this program.");
    } else {
        link(std::string(preferenceBundlesPath) + '/' + settingsBundleName,
             installed + "/PreferenceBundles/" + settingsBundleName);
        link(platform::appListLibraryPath, installed + "/DynamicLibraries/" + appListModule);
    }
    if (furnish)
        furnish();
    firstStart();
}

void Provision::makeFolders() {
    const std::string root = platform::deviceRoot();
    // For the user alone, whatever the creation mask; what cannot be made is told of the root itself.
    static_cast<void>(
        platform::makeFolders(platform::FileSystem::current(), platform::folderOf(root), privateMode));
    makeFolder(root);
    for (const char* folder : deviceFolders) {
        fs::path path;
        for (const auto& part : fs::path(folder).relative_path()) {
            path /= part;
            makeFolder(platform::pathOnDevice('/' + path.string()));
        }
    }
}

void Provision::makeFolder(const std::string& path) {
    std::error_code error;
    if (fs::create_directory(path, error))
        fs::permissions(path, fs::perms::owner_all, error);
    else if (!error || fs::is_directory(path))
        return;
    if (error)
        problems_.push_back("The folder " + path + " cannot be made: " + error.message() + ".");
}

void Provision::link(const std::string& devicePath, const std::string& target) {
    const fs::path path = platform::pathOnDevice(devicePath);
    std::error_code error;
    const auto status = fs::symlink_status(path, error);
    // Something else that stands there was put there by the user.
    if (fs::exists(status) && !fs::is_symlink(status))
        return;
    if (!fs::exists(target, error) || (fs::is_symlink(status) && fs::read_symlink(path, error) == target))
        return;
    // Beside and over it, so that another start never sees the bundle missing.
    const fs::path temporary = path.string() + ".new" + std::to_string(std::random_device()());
    fs::create_symlink(target, temporary, error);
    if (!error)
        fs::rename(temporary, path, error);
    std::error_code ignored;
    fs::remove(temporary, ignored);
    if (error)
        problems_.push_back("The link " + path.string() + " cannot be made: " + error.message() + ".");
}

void Provision::firstStart() {
    std::error_code error;
    const fs::path document = platform::pathOnDevice(documentPath(BundleIdentifier));
    if (fs::symlink_status(document, error).type() == fs::file_type::not_found)
        InitSettings();
}

void Provision::lookAtAppList() {
    const std::string reason = platform::reasonToDistrustModule(platform::appListLibraryPath);
    if (!reason.empty())
        problems_.push_back("The list of applications stays empty: " + reason + ".");
}

} // namespace wardlock::shell
