#pragma once

#include <string_view>

namespace wardlock::test {

/// Fails when the point is the one that "/var/mobile/Library/Preferences/test.failing.plist" names as "at":
/// throws what the file names as "as". That is an NSException of the reason "failed at POINT" unless it is
/// "message", a std::exception of that message, "no message", one whose message is null, or "number", an int.
void failAt(std::string_view point);

/// Writes into the preferences document, as a page that has not failed does.
void changeDocument();

} // namespace wardlock::test
