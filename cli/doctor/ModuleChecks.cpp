// The checks of the modules that Settings loads from the device root: the bundle and the AppList library.

#include "cli/doctor/CheckResult.h"
#include "cli/io/ShellWord.h"
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

/// In the machine's own root there are no links to repair: the package installs the modules there.
std::string howToInstall() {
    return platform::deviceRoot() == "/"
               ? "Reinstall the Wardlock package of this device."
               : "Open Settings once (wardlock settings): it repairs the links to this installation. If "
                 "that does not help, reinstall Wardlock.";
}

/// Returns why the path cannot be opened; empty when it can.
std::string whyMissing(const std::string& path) {
    platform::FileSystem& files = platform::FileSystem::current();
    platform::FileStatus status;
    if (!files.status(path, platform::Links::Follow, status))
        return "";
    if (!files.status(path, platform::Links::NoFollow, status))
        return path + " is a link to a missing file";
    return path + " does not exist";
}

/// Returns whether a file that is not a link is where a device root has the link to this installation; on the
/// device itself the package installs the module there.
bool isForeign(const std::string& path) {
    platform::FileStatus status;
    return platform::deviceRoot() != "/" &&
           !platform::FileSystem::current().status(path, platform::Links::NoFollow, status) &&
           status.kind != platform::FileKind::Link;
}

} // namespace

CheckResult checkBundle() {
    CheckResult result("bundle", "Settings bundle");
    const std::string devicePath =
        std::string(shell::preferenceBundlesPath) + '/' + shell::settingsBundleName;
    const std::string path = platform::pathOnDevice(devicePath);
    result.facts["path"] = path;
    if (const std::string missing = whyMissing(path); !missing.empty())
        return result.fails(missing, howToInstall());
    const auto bundle = platform::NSBundle::bundleWithPath(devicePath);
    if (!bundle)
        return result.fails(path + " has no readable Info.plist", howToInstall());
    std::string reason;
    const platform::Class* principal = bundle->principalClass(reason);
    if (!principal)
        return result.fails(path + " cannot be loaded: " + reason, howToInstall());
    result.facts["principalClass"] = principal->name();
    result.text = path + " loads";
    return result;
}

CheckResult checkAppList() {
    CheckResult result("appList", "AppList module");
    const std::string path = platform::pathOnDevice(platform::appListLibraryPath);
    result.facts["path"] = path;
    if (const std::string missing = whyMissing(path); !missing.empty())
        return result.fails(missing, howToInstall());
    if (isForeign(path))
        return result.fails(
            path + " is a file of another program, and the link to Wardlock's module is missing",
            "Move it away and open Settings once (wardlock settings), which creates the link: mv " +
                shellWord(path) + ' ' + shellWord(path + ".foreign"));
    if (!platform::dlopen(platform::appListLibraryPath, platform::RTLD_Lazy))
        return result.fails(path + " cannot be loaded: " + platform::dlerror(), howToInstall());
    const platform::Class* const list = platform::objc_getClass("ALApplicationList");
    auto* const methods = list ? list->classMethods<platform::ALApplicationListClass>() : nullptr;
    if (!methods)
        return result.fails(path + " has no class ALApplicationList", howToInstall());
    const std::size_t count = methods->sharedApplicationList().applications().size();
    result.facts["applications"] = count;
    result.text = path + " loads, " + std::to_string(count) + " applications";
    if (count == 0)
        result.advice.push_back("The picker of restricted apps stays empty: the device root has no "
                                "applications in " +
                                platform::pathOnDevice("/Applications") + '.');
    return result;
}

} // namespace wardlock::cli
