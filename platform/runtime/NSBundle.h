#pragma once

#include "platform/base/Export.h"
#include "platform/runtime/Class.h"
#include "platform/values/Value.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <typeinfo>

namespace platform {

/// A folder that contains a module and its resources beside an Info.plist.
class WARDLOCK_API NSBundle {
public:
    /// Returns the bundle in the folder at a device path; null unless its Info.plist is a dictionary.
    static std::shared_ptr<NSBundle> bundleWithPath(std::string_view devicePath);
    /// Returns the bundle whose module defines the object's class or the class named. It is the nearest
    /// folder above the module's file with an Info.plist; else the folder of the program or library. Never
    /// null.
    static std::shared_ptr<NSBundle> bundleForObject(const Object& object);
    static std::shared_ptr<NSBundle> bundleForClass(const std::type_info& type);

    /// The folder, a path of this machine without links.
    const std::string& bundlePath() const { return path_; }
    const Dictionary& infoDictionary() const { return info_; }
    /// Returns the path on this machine of the resource "name.type" of the bundle. Returns nothing where
    /// there is no such file, and for a name that leads out of the bundle.
    std::optional<std::string> pathForResource(std::string_view name, std::string_view type) const;

    /// Returns why nothing of the bundle must be used: another user could have changed its Info.plist. Empty
    /// when no other user could.
    std::string reasonToDistrust() const;
    /// Opens the module ("CFBundleExecutable") and returns its class named by "NSPrincipalClass". Returns
    /// null when either fails, with the reason in `reason`. A loaded bundle is never unloaded.
    const Class* principalClass(std::string& reason);

private:
    NSBundle(std::string foundPath, std::string path, Dictionary info);

    /// The path by which it was found, links included: a user who can change a folder on it chooses the
    /// bundle.
    std::string foundPath_;
    std::string path_;
    Dictionary info_;
    void* module_ = nullptr;
};

} // namespace platform
