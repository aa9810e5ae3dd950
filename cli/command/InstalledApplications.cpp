#include "cli/command/InstalledApplications.h"

#include "platform/files/DeviceRoot.h"
#include "platform/runtime/Class.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/runtime/Module.h"
#include "platform/services/ALApplicationList.h"
#include "shell/device/InstalledFiles.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace wardlock::cli {

namespace {

/// Returns why the library cannot be loaded; empty when it is.
std::string loadAppList() {
    if (platform::dlopen(platform::appListLibraryPath, platform::RTLD_Lazy))
        return "";
    std::string reason = platform::dlerror();
    std::error_code error;
    const bool isMissing =
        !std::filesystem::exists(platform::pathOnDevice(platform::appListLibraryPath), error);
    const std::string installed = shell::installedAppList();
    // On the machine's own root, Settings creates no link either.
    if (isMissing && platform::deviceRoot() != "/" && !installed.empty() &&
        platform::openModule(installed, platform::RTLD_Lazy, reason))
        return "";
    return reason;
}

} // namespace

InstalledApplications installedApplications() {
    if (std::string reason = loadAppList(); !reason.empty())
        return {{}, std::move(reason)};
    const platform::Class* const list = platform::objc_getClass("ALApplicationList");
    auto* const methods = list ? list->classMethods<platform::ALApplicationListClass>() : nullptr;
    if (!methods)
        return {{}, platform::pathOnDevice(platform::appListLibraryPath) + " has no list of applications"};
    return {methods->sharedApplicationList().applications(), ""};
}

} // namespace wardlock::cli
