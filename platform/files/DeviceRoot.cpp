#include "platform/files/DeviceRoot.h"

#include "platform/files/FileSystem.h"
#include "platform/files/HomeFolder.h"

#include <cstdlib>
#include <filesystem>

namespace platform {

namespace {

constexpr const char* rootVariable = "WARDLOCK_DEVICE_ROOT";

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

std::string withoutTrailingSlashes(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

/// Returns whether the path is absolute and surely has no empty component and none of "." and "..".
bool isPlain(std::string_view path) {
    return path.starts_with('/') && path.size() > 1 && !path.ends_with('/') &&
           path.find("//") == std::string_view::npos && path.find("/.") == std::string_view::npos;
}

/// Returns the folder above, as the kernel finds it: a symbolic link is left from where it leads to.
std::string folderAbove(const std::string& folder) {
    const std::string above = folder + "/..";
    std::string resolved;
    FileSystem& files = FileSystem::current();
    const std::error_code error = files.resolve(above, resolved);
    FileStatus status;
    const bool isMissing =
        files.status(folder, Links::NoFollow, status) == std::errc::no_such_file_or_directory;
    // What cannot be resolved stays for the kernel to refuse, but a missing folder can still be created.
    return !error ? resolved : isMissing ? folderOf(folder) : above;
}

/// A relative root would name another folder, and another device, after each change of the working folder.
std::string absolute(const std::string& path) {
    // The usual root, at a tenth of the time: each access to a file asks for it.
    if (path == "/" || isPlain(path))
        return path;
    std::error_code failed;
    const std::filesystem::path whole = std::filesystem::absolute(path, failed);
    if (failed)
        return withoutTrailingSlashes(path);
    std::string plain = "/";
    for (const auto& component : whole.relative_path()) {
        if (component == "..")
            plain = folderAbove(plain);
        else if (!component.empty() && component != ".")
            plain += (plain == "/" ? "" : "/") + component.string();
    }
    return plain;
}

bool machineIsDevice() {
    FileStatus status;
    return !FileSystem::current().status("/var/mobile", Links::Follow, status) &&
           status.kind == FileKind::Folder;
}

/// Relative paths in these variables count as absent.
std::string dataFolder() {
    if (const std::string data = environment("XDG_DATA_HOME"); data.starts_with('/'))
        return withoutTrailingSlashes(data);
    std::string home = environment("HOME");
    if (!home.starts_with('/'))
        home = homeFolderOfUser().value_or("/nonexistent");
    return withoutTrailingSlashes(home) + "/.local/share";
}

std::string defaultRoot() {
    if (machineIsDevice())
        return "/";
    const std::string data = dataFolder();
    return (data == "/" ? "" : data) + "/wardlock/device";
}

/// Returns whether both name one folder, or a folder that does not exist yet.
bool isSameFolder(const std::string& one, const std::string& other) {
    FileStatus first;
    FileStatus second;
    FileSystem& files = FileSystem::current();
    return one == other ||
           (!files.status(one, Links::Follow, first) && !files.status(other, Links::Follow, second) &&
            first.device == second.device && first.inode == second.inode);
}

} // namespace

std::string deviceRoot() {
    const std::string named = environment(rootVariable);
    return named.empty() ? defaultRoot() : absolute(named);
}

bool deviceRootIsFromEnvironment() {
    return !environment(rootVariable).empty();
}

bool deviceRootIsDefault() {
    return !deviceRootIsFromEnvironment() || isSameFolder(deviceRoot(), defaultRoot());
}

std::string pathOnDevice(std::string_view devicePath) {
    std::string path = deviceRoot();
    const std::size_t rootLength = path == "/" ? 0 : path.size();
    path.resize(rootLength);
    if (isPlain(devicePath)) {
        path.append(devicePath);
        return path;
    }
    while (!devicePath.empty()) {
        const std::string_view component = devicePath.substr(0, devicePath.find('/'));
        devicePath.remove_prefix(std::min(component.size() + 1, devicePath.size()));
        if (component == "..")
            path.resize(path.size() > rootLength ? path.rfind('/') : rootLength);
        else if (!component.empty() && component != ".")
            path.append("/").append(component);
    }
    return path.empty() ? "/" : path;
}

} // namespace platform
