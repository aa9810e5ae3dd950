#pragma once

#include "tests/unit/cli/CommandFixture.h"

#include <string>

namespace wardlock::test {

/// A document in force, with the account Tom, whose passcode is this element: "<string>1234</string>".
inline std::string protectedDocument(const std::string& passcode = "<string>1234</string>") {
    return xml("<dict><key>kEnabled</key><true/><key>kPasscode</key>" + passcode +
               "<key>kAccounts</key><array><dict><key>kAccountEnabled</key><true/><key>kAccountName</key>"
               "<string>Tom</string></dict></array></dict>");
}

} // namespace wardlock::test
