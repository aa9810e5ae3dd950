#pragma once

/// The product's fixed names, each once.

#include <string_view>

namespace wardlock {

inline constexpr std::string_view BundleIdentifier = "com.tavix.wardlock";
/// Last component of the change notification's name.
inline constexpr std::string_view PostName = "update";
/// The maker's sibling product, into whose preferences writeSettings() writes.
inline constexpr std::string_view SiblingIdentifier = "com.tavix.kitbay";

/// Device paths, to be formatted with a bundle identifier.
inline constexpr std::string_view DocumentPathFormat = "/var/mobile/Library/Preferences/%@.plist";
inline constexpr std::string_view LogPathFormat = "/var/mobile/%@_log";
/// To be formatted with a bundle identifier and a post name.
inline constexpr std::string_view ChangeNotificationNameFormat = "%@/%@";

} // namespace wardlock
