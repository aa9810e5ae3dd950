#pragma once

#include "tests/support/DeviceRootFixture.h"

#include <string>
#include <string_view>

namespace wardlock::test {

/// A device root into which test modules can be put. A copy is a module of its own: the system knows files,
/// not names.
class ModuleFixture : public DeviceRootFixture {
protected:
    /// Copies the test module to a device path, for the user alone.
    void putModule(std::string_view name, std::string_view devicePath) const;
    /// A bundle at a device path, whose Info.plist has these entries between <dict> and </dict>.
    void putBundle(std::string_view devicePath, std::string_view entries) const;
    /// Changes the mode of a file or folder of the device.
    void setMode(std::string_view devicePath, unsigned mode) const;
};

} // namespace wardlock::test
