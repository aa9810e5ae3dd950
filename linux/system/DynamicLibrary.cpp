#include "platform/runtime/DynamicLibrary.h"

#include "platform/files/DeviceRoot.h"
#include "platform/files/FileSystem.h"
#include "platform/runtime/Module.h"

#include <dlfcn.h>
#include <link.h>
#include <map>
#include <mutex>

namespace platform {

namespace {

struct OpenModule {
    ClassTable classes = ClassTable();
    std::size_t handles = 0;
};

/// The open modules by the system's handle, which is the same however often a file is opened. Recursive: a
/// module's own initialisers may open another. Never destroyed, as handles are released late.
struct OpenModules {
    std::recursive_mutex guard;
    std::map<void*, OpenModule> byHandle;
};

OpenModules& openModules() {
    static OpenModules* const all = new OpenModules;
    return *all;
}

std::string& lastReason() {
    thread_local std::string reason;
    return reason;
}

std::string systemReason() {
    const char* text = ::dlerror();
    return text ? text : "unknown reason";
}

/// Maps the file for good: an object of the module may be released after its last handle.
void* mapFile(const std::string& path, int mode) {
    const int binding = mode == RTLD_Lazy ? RTLD_LAZY : RTLD_NOW;
    return ::dlopen(path.c_str(), binding | RTLD_LOCAL | RTLD_NODELETE);
}

} // namespace

void* openModule(const std::string& path, int mode, std::string& reason) {
    std::string file;
    if (std::error_code error = FileSystem::native().resolve(path, file)) {
        reason = path + ": " + error.message();
        return nullptr;
    }
    reason = reasonToDistrust(path);
    if (!reason.empty())
        return nullptr;
    const std::lock_guard lock(openModules().guard);
    void* const handle = mapFile(file, mode);
    if (!handle) {
        reason = systemReason();
        return nullptr;
    }
    OpenModule& opened = openModules().byHandle[handle];
    if (opened.handles == 0) {
        using Entry = ClassTable (*)();
        const auto entry = reinterpret_cast<Entry>(::dlsym(handle, classTableEntry));
        if (!entry) {
            openModules().byHandle.erase(handle);
            reason = file + " is not a module for Settings: it does not export " + classTableEntry;
            return nullptr;
        }
        opened.classes = entry();
        registerClasses(opened.classes);
    }
    ++opened.handles;
    return handle;
}

ClassTable classesOfModule(void* handle) {
    const std::lock_guard lock(openModules().guard);
    const auto found = openModules().byHandle.find(handle);
    return found == openModules().byHandle.end() ? ClassTable() : found->second.classes;
}

std::string moduleContaining(const void* address) {
    Dl_info info = {};
    void* extra = nullptr;
    if (::dladdr1(address, &info, &extra, RTLD_DL_LINKMAP) == 0)
        return "";
    // The program itself has no name here, and the name of its call may have been looked up in PATH.
    const std::string name = static_cast<const link_map*>(extra)->l_name;
    const std::string path = name.empty() ? "/proc/self/exe" : name;
    std::string file;
    return FileSystem::native().resolve(path, file) ? path : file;
}

void* dlopen(std::string_view devicePath, int mode) {
    return openModule(pathOnDevice(devicePath), mode, lastReason());
}

std::string reasonToDistrustModule(std::string_view devicePath) {
    const std::string path = pathOnDevice(devicePath);
    FileStatus status;
    return FileSystem::native().status(path, Links::Follow, status) ? "" : reasonToDistrust(path);
}

void dlclose(void* handle) {
    const std::lock_guard lock(openModules().guard);
    const auto found = openModules().byHandle.find(handle);
    if (found == openModules().byHandle.end() || --found->second.handles > 0)
        return;
    withdrawClasses(found->second.classes);
    openModules().byHandle.erase(found);
}

std::string dlerror() {
    return lastReason();
}

} // namespace platform
