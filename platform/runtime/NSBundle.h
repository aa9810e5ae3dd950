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

/// A folder that carries a module and its resources beside an Info.plist.
class WARDLOCK_API NSBundle {
public:
    /// The bundle in the folder at a device path; null when there is no Info.plist there that is a
    /// dictionary.
    static std::shared_ptr<NSBundle> bundleWithPath(std::string_view devicePath);
    /// The bundle whose module defines the class of the object or the class named: the nearest folder above
    /// the module's file with an Info.plist; the folder of the program or library where that is no bundle.
    /// Never null.
    static std::shared_ptr<NSBundle> bundleForObject(const Object& object);
    static std::shared_ptr<NSBundle> bundleForClass(const std::type_info& type);

    /// The folder, a path of this machine without links.
    const std::string& bundlePath() const { return path_; }
    const Dictionary& infoDictionary() const { return info_; }
    /// A path of this machine for the resource "name.type" of the bundle, or none where there is no such
    /// file. A name that leads out of the bundle names none.
    std::optional<std::string> pathForResource(std::string_view name, std::string_view type) const;

    /// Why nothing of the bundle is to be used: somebody else could have changed what its Info.plist says.
    /// Empty when nobody could.
    std::string reasonToDistrust() const;
    /// Opens the module ("CFBundleExecutable") and answers its class named by "NSPrincipalClass"; null when
    /// either fails, with the reason in `reason`. A loaded bundle is never unloaded.
    const Class* principalClass(std::string& reason);

private:
    NSBundle(std::string way, std::string path, Dictionary info);

    /// The path it was found by, links included: whoever can change a folder on it chooses the bundle.
    std::string way_;
    std::string path_;
    Dictionary info_;
    void* module_ = nullptr;
};

} // namespace platform
