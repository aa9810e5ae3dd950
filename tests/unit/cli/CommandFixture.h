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

/// A document in force with accounts of these names and no other settings.
inline std::string accountsDocument(const std::vector<std::string>& names) {
    std::string records;
    for (const auto& name : names)
        records += "<dict><key>kAccountName</key><string>" + name + "</string></dict>";
    return xml(
        "<dict><key>kEnabled</key><true/><key>kPasscode</key><string></string><key>kAccounts</key><array>" +
        records + "</array></dict>");
}

} // namespace wardlock::test
