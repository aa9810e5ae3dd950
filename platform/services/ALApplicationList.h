#pragma once

#include "platform/base/Object.h"
#include "platform/ui/UIImage.h"
#include "platform/values/Value.h"

#include <memory>
#include <string_view>

namespace platform {

/// The device path of the module that offers the class "ALApplicationList".
inline constexpr const char* appListLibraryPath = "/Library/MobileSubstrate/DynamicLibraries/AppList.dylib";

/// The installed applications.
class WARDLOCK_API ALApplicationList : public Object {
public:
    ~ALApplicationList() override;

    /// Returns every installed application: display identifier to display name (a string).
    virtual Dictionary applications() = 0;
    /// Returns a square icon of `size` points; null when the application is not installed. Of an application
    /// without an icon, null or an empty image.
    virtual std::shared_ptr<UIImage> iconOfSize(int size, std::string_view displayIdentifier) = 0;
};

/// The class methods of "ALApplicationList".
class WARDLOCK_API ALApplicationListClass : public Object {
public:
    ~ALApplicationListClass() override;
    virtual ALApplicationList& sharedApplicationList() = 0;
};

} // namespace platform
