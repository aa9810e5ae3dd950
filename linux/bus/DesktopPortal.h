#pragma once

namespace platform::bus::desktopportal {

// Where the desktop's portals are to be found on the session bus.

inline constexpr const char* service = "org.freedesktop.portal.Desktop";
inline constexpr const char* object = "/org/freedesktop/portal/desktop";

} // namespace platform::bus::desktopportal
