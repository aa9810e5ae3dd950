// What the doctor finds of the modules that Settings loads from the device root: the bundle and the AppList
// library.

#include "cli/doctor/Finding.h"
#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/runtime/Class.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/runtime/NSBundle.h"
#include "platform/services/ALApplicationList.h"
#include "shell/device/BundleList.h"
#include "shell/device/Provision.h"

namespace wardlock::cli {

namespace {

/// On the machine's own root nothing is linked: there all of it is the package's.
std::string howToInstall() {
    return platform::deviceRoot() == "/"
               ? "Install Wardlock's package for this device again."
               : "Open Settings once (wardlock settings): it links what this installation has. Where that "
                 "does not help, install Wardlock again.";
}

/// What stands at the path and what follows from it; empty when it can be opened.
std::string whyNotThere(const std::string& path) {
    platform::FileSystem& files = platform::FileSystem::current();
    platform::FileStatus status;
    if (!files.status(path, platform::Links::Follow, status))
        return "";
    if (!files.status(path, platform::Links::Keep, status))
        return path + " is a link to something that is gone";
    return path + " is not there";
}

} // namespace

Finding lookAtBundle() {
    Finding finding("bundle", "Settings bundle");
    const std::string devicePath =
        std::string(shell::preferenceBundlesPath) + '/' + shell::settingsBundleName;
    const std::string path = platform::pathOnDevice(devicePath);
    finding.facts["path"] = path;
    if (const std::string missing = whyNotThere(path); !missing.empty())
        return finding.fails(missing, howToInstall());
    const auto bundle = platform::NSBundle::bundleWithPath(devicePath);
    if (!bundle)
        return finding.fails(path + " has no Info.plist that can be read", howToInstall());
    std::string reason;
    const platform::Class* principal = bundle->principalClass(reason);
    if (!principal)
        return finding.fails(path + " cannot be loaded: " + reason, howToInstall());
    finding.facts["principalClass"] = principal->name();
    finding.text = path + " loads";
    return finding;
}

Finding lookAtAppList() {
    Finding finding("appList", "AppList module");
    const std::string path = platform::pathOnDevice(platform::appListLibraryPath);
    finding.facts["path"] = path;
    if (const std::string missing = whyNotThere(path); !missing.empty())
        return finding.fails(missing, howToInstall());
    if (!platform::dlopen(platform::appListLibraryPath, platform::RTLD_Lazy))
        return finding.fails(path + " cannot be loaded: " + platform::dlerror(), howToInstall());
    const platform::Class* const list = platform::objc_getClass("ALApplicationList");
    auto* const methods = list ? list->classMethods<platform::ALApplicationListClass>() : nullptr;
    if (!methods)
        return finding.fails(path + " offers no ALApplicationList", howToInstall());
    const std::size_t count = methods->sharedApplicationList().applications().size();
    finding.facts["applications"] = count;
    finding.text = path + " loads, " + std::to_string(count) + " applications";
    if (count == 0)
        finding.advice.push_back("The picker of restricted apps stays empty: the device root has no "
                                 "applications in " +
                                 platform::pathOnDevice("/Applications") + '.');
    return finding;
}

} // namespace wardlock::cli
