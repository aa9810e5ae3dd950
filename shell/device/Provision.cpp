#include "shell/device/Provision.h"

#include "platform/base/Translation.h"
#include "platform/files/AtomicWriter.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/files/FolderTrust.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/services/ALApplicationList.h"
#include "settings/Constants.h"
#include "settings/DocumentPath.h"
#include "settings/Settings.h"
#include "shell/device/BundleList.h"
#include "shell/device/InstalledFiles.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <string>
#include <system_error>
#include <utility>

namespace wardlock::shell {

namespace fs = std::filesystem;

using platform::filledIn;
using platform::translated;

namespace {

constexpr std::array folders{
    "/Applications", "/Library/MobileSubstrate/DynamicLibraries", preferenceBundlesPath,
    "/tmp",          "/var/mobile/Library/Preferences",
};

constexpr unsigned privateMode = 0700;

/// Returns whether another user could neither have put files there nor can do so now.
bool isFolderOfOurs(const std::string& path) {
    return !platform::riskOfFolder(path);
}

} // namespace

std::span<const char* const> deviceFolders() {
    return folders;
}

Provision::Provision(const std::function<void()>& furnish) {
    if (platform::deviceRoot() != "/")
        makeWhatIsMissing(furnish);
    tryWriting();
    lookAtAppList();
}

void Provision::makeWhatIsMissing(const std::function<void()>& furnish) {
    const bool complete = makeFolders();
    const std::string installed = installedFolder();
    if (installed.empty()) {
        problems_.push_back(translated("Problem", "no settings bundle beside this program"));
    } else {
        link(std::string(preferenceBundlesPath) + '/' + settingsBundleName,
             installed + "/PreferenceBundles/" + settingsBundleName);
        link(platform::appListLibraryPath, installedAppList());
    }
    if (furnish && complete)
        furnish();
    firstStart();
}

bool Provision::makeFolders() {
    const std::string root = platform::deviceRoot();
    // What cannot be created here is reported as a problem of the root itself.
    static_cast<void>(
        platform::makeFolders(platform::FileSystem::current(), platform::folderOf(root), privateMode));
    if (!makeFolder(root))
        return false;
    bool complete = true;
    for (const char* folder : folders)
        complete = makeFoldersTo(folder) && complete;
    return complete;
}

bool Provision::makeFoldersTo(const std::string& devicePath) {
    fs::path path;
    for (const auto& part : fs::path(devicePath).relative_path()) {
        path /= part;
        if (!makeFolder(platform::pathOnDevice('/' + path.string())))
            return false;
    }
    return true;
}

bool Provision::makeFolder(const std::string& path) {
    // Private from the first moment: before it is closed, another user could enter the folder and create one
    // of their own in it.
    if (const auto error = platform::makeFolders(platform::FileSystem::current(), path, privateMode)) {
        reportFailure(filledIn(translated("Problem", "cannot create folder %1"), {path}), error);
        return false;
    }
    if (const platform::FolderRisk risk = platform::riskOfFolder(path)) {
        report(filledIn(translated("Problem", "cannot use folder %1: %2"), {path, risk.reason}));
        return false;
    }
    return true;
}

void Provision::report(std::string problem) {
    // Several folders have the same parent.
    if (std::ranges::find(problems_, problem) == problems_.end())
        problems_.push_back(std::move(problem));
}

/// A disk that is full or read-only fails everywhere, and a folder for everything in it.
void Provision::reportFailure(const std::string& what, std::error_code error) {
    const std::string reason = ": " + error.message();
    if (std::ranges::any_of(problems_, [&](const auto& known) { return known.ends_with(reason); }))
        return;
    const bool everywhere =
        error == std::errc::read_only_file_system || error == std::errc::no_space_on_device;
    problems_.push_back((everywhere ? filledIn(translated("Problem", "cannot write to the device root %1"),
                                               {platform::deviceRoot()})
                                    : what) +
                        reason);
}

void Provision::link(const std::string& devicePath, const std::string& target) {
    const fs::path path = platform::pathOnDevice(devicePath);
    std::error_code error;
    const auto status = fs::symlink_status(path, error);
    // The user put something else there: it stays.
    if ((fs::exists(status) && !fs::is_symlink(status)) || !isFolderOfOurs(path.parent_path()))
        return;
    if (!fs::exists(target, error) || (fs::is_symlink(status) && fs::read_symlink(path, error) == target))
        return;
    // The new link is created beside the old one and renamed over it, so that another start never sees the
    // bundle missing.
    const fs::path temporary = path.string() + ".new" + std::to_string(std::random_device()());
    fs::create_symlink(target, temporary, error);
    if (!error)
        fs::rename(temporary, path, error);
    std::error_code ignored;
    fs::remove(temporary, ignored);
    if (error)
        reportFailure(filledIn(translated("Problem", "cannot create link %1"), {path.string()}), error);
}

void Provision::firstStart() {
    std::error_code error;
    const fs::path document = platform::pathOnDevice(documentPath(BundleIdentifier));
    if (fs::symlink_status(document, error).type() == fs::file_type::not_found &&
        isFolderOfOurs(document.parent_path()))
        InitSettings();
}

/// Finds out now what the user's first change would find out. The disk may have room for no more than a name,
/// so a block is written as well.
void Provision::tryWriting() {
    constexpr std::size_t block = 4096;
    auto& files = platform::FileSystem::current();
    const std::string folder = platform::folderOf(platform::pathOnDevice(documentPath(BundleIdentifier)));
    platform::FileStatus status;
    if (files.status(folder, platform::Links::Follow, status) || !isFolderOfOurs(folder))
        return;
    const std::string trial = folder + "/.wardlock-trial";
    if (const auto error =
            platform::AtomicWriter(files).write(trial, std::string(block, '\n'), platform::Sync::None))
        reportFailure(filledIn(translated("Problem", "cannot write to folder %1"), {folder}), error);
    static_cast<void>(files.remove(trial));
}

void Provision::lookAtAppList() {
    const std::string reason = platform::reasonToDistrustModule(platform::appListLibraryPath);
    if (!reason.empty())
        problems_.push_back(filledIn(translated("Problem", "cannot list applications: %1"), {reason}));
}

} // namespace wardlock::shell
