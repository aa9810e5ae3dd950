#include "cli/command/InstalledApplications.h"

#include "platform/runtime/Class.h"
#include "platform/runtime/DynamicLibrary.h"
#include "platform/services/ALApplicationList.h"

namespace wardlock::cli {

platform::Dictionary installedApplications() {
    if (!platform::dlopen(platform::appListLibraryPath, platform::RTLD_Lazy))
        return {};
    const platform::Class* const list = platform::objc_getClass("ALApplicationList");
    auto* const methods = list ? list->classMethods<platform::ALApplicationListClass>() : nullptr;
    return methods ? methods->sharedApplicationList().applications() : platform::Dictionary();
}

} // namespace wardlock::cli
