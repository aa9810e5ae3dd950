#pragma once

#include "bench/Listener.h"

namespace wardlock::bench {

/// The argument that starts this program's second process as a listener.
inline constexpr const char* listenForNotificationsVerb = "listen-notify";

/// The second process: reports each notification's value; never returns.
[[noreturn]] void listenForNotifications();

/// Announces a value; no file is touched.
void announce(bool value);

} // namespace wardlock::bench
