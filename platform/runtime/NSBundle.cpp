#include "platform/runtime/NSBundle.h"

#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/plist/DocumentFile.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/runtime/Module.h"

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr const char* infoFile = "/Info.plist";
// A module is in its bundle or in a folder or two inside; a bundle further up is not its own.
constexpr int searchedFolders = 3;
// No file and no class has a longer name, and reasons quote them.
constexpr std::size_t longestName = 1024;

std::optional<Dictionary> infoIn(const std::string& folder) {
    return DocumentFile(FileSystem::current(), folder + infoFile).dictionary();
}

std::string stringIn(const Dictionary& info, std::string_view key) {
    return std::string(stringValue(info.find(key)).value_or(""));
}

/// Returns whether a name stays inside the folder in which it is looked up.
bool staysInside(std::string_view name) {
    while (!name.empty()) {
        const std::string_view component = name.substr(0, name.find('/'));
        if (component == "..")
            return false;
        name.remove_prefix(std::min(component.size() + 1, name.size()));
    }
    return true;
}

} // namespace

NSBundle::NSBundle(std::string foundPath, std::string path, Dictionary info)
    : foundPath_(std::move(foundPath)), path_(std::move(path)), info_(std::move(info)) {}

std::shared_ptr<NSBundle> NSBundle::bundleWithPath(std::string_view devicePath) {
    const std::string foundPath = pathOnDevice(devicePath);
    std::string folder;
    if (FileSystem::current().resolve(foundPath, folder))
        return nullptr;
    std::optional<Dictionary> info = infoIn(folder);
    return info ? std::shared_ptr<NSBundle>(new NSBundle(foundPath, folder, *info)) : nullptr;
}

std::shared_ptr<NSBundle> NSBundle::bundleForObject(const Object& object) {
    return bundleForClass(typeid(object));
}

std::shared_ptr<NSBundle> NSBundle::bundleForClass(const std::type_info& type) {
    const std::string own = folderOf(moduleContaining(&type));
    std::string folder = own;
    for (int level = 0; level < searchedFolders; ++level) {
        if (const std::optional<Dictionary> info = infoIn(folder))
            return std::shared_ptr<NSBundle>(new NSBundle(folder, folder, *info));
        folder = folderOf(folder);
    }
    return std::shared_ptr<NSBundle>(new NSBundle(own, own, Dictionary()));
}

std::optional<std::string> NSBundle::pathForResource(std::string_view name, std::string_view type) const {
    std::string file(name);
    if (!type.empty())
        file.append(".").append(type);
    if (file.empty() || !staysInside(file))
        return std::nullopt;
    std::string path = path_ + '/' + file;
    FileStatus status;
    const bool found = !FileSystem::current().status(path, Links::Follow, status);
    return found && status.kind == FileKind::Regular ? std::optional(std::move(path)) : std::nullopt;
}

std::string NSBundle::reasonToDistrust() const {
    return platform::reasonToDistrust(foundPath_ + infoFile);
}

const Class* NSBundle::principalClass(std::string& reason) {
    if (reason = reasonToDistrust(); !reason.empty())
        return nullptr;
    const std::string executable = stringIn(info_, "CFBundleExecutable");
    const std::string name = stringIn(info_, "NSPrincipalClass");
    if (executable.empty() || executable.size() > longestName || !staysInside(executable)) {
        reason = path_ + infoFile + " names no module in CFBundleExecutable";
        return nullptr;
    }
    if (name.empty() || name.size() > longestName) {
        reason = path_ + infoFile + " names no class in NSPrincipalClass";
        return nullptr;
    }
    // One handle for each bundle object, never released: a bundle stays loaded.
    if (!module_)
        module_ = openModule(foundPath_ + '/' + executable, RTLD_Lazy, reason);
    if (!module_)
        return nullptr;
    const Class* const found = classInTable(classesOfModule(module_), name);
    reason = found ? "" : "The module of " + path_ + " has no class " + name;
    return found;
}

} // namespace platform
