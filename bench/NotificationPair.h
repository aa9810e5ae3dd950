#pragma once

#include "bench/Listener.h"

namespace wardlock::bench {

/// The word by which this program's second process is told to listen.
inline constexpr const char* listenForNotificationsVerb = "listen-notify";

/// The second process: reports each notification's value; never returns.
[[noreturn]] void listenForNotifications();

/// Announces a value; no file is touched.
void announce(bool value);

} // namespace wardlock::bench
