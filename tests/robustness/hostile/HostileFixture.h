#pragma once

#include "tests/support/DeviceRootFixture.h"
#include "tests/support/OtherUser.h"

#include <string>
#include <string_view>

namespace wardlock::test {

/// A device root among other users: the folders above the device's own are open to them, so that nothing but
/// what the product does itself keeps them out.
class HostileFixture : public DeviceRootFixture {
protected:
    static constexpr std::string_view documentFolder = "/var/mobile/Library/Preferences";

    /// Lets others into the test's folder and every folder in it; into `folder` they may even write.
    void letOthersIn() const;
    void letOthersWrite(const std::string& folder) const;
    /// A file of this user outside the device that others may not read.
    std::string secret() const;
    static std::string contents(const std::string& path);
    static unsigned modeOf(const std::string& path);
};

} // namespace wardlock::test
