#pragma once

#include "tests/support/BuildPaths.h"
#include "tests/support/DeviceRootFixture.h"
#include "tests/support/Process.h"

#include <string>
#include <vector>

namespace wardlock::test {

/// The real command, run as a process with a device root of its own.
inline const std::string command = buildFolder() + "/bin/wardlock";

inline ProcessResult wardlockCommand(const std::vector<std::string>& arguments,
                                     const ProcessSetup& setup = {}) {
    return runProcess(command, arguments, setup);
}

inline constexpr const char* documentPath = "/var/mobile/Library/Preferences/com.tavix.wardlock.plist";

/// A property list in XML around one value.
inline std::string xml(const std::string& value) {
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<plist version=\"1.0\">" + value + "</plist>\n";
}

} // namespace wardlock::test
