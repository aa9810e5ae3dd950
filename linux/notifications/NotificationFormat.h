#pragma once

#include <cstddef>

// The form of a notification on the bus; docs/notification.md describes it for listeners in other languages.
//
// A broadcast signal of the arguments
//   s   the device root's identity
//   s   the notification's name
//   as  the object: none or one
//   av  the user info: none or one value
//
// A value is a variant whose signature gives the kind:
//   b boolean, x integer, t integer above the signed range, d real, s string, ay data,
//   (d) date, seconds since 2001-01-01 00:00:00 UTC, av array, a{sv} dictionary,
//   (ay) string that is not a D-Bus text: a zero byte within, or not UTF-8,
//   (av) a container in flattened form, used below the sixteenth level, near D-Bus's own bound, and for
//        dictionaries with a key that is not a D-Bus text: the values in the order of reading.
//        A container is (su), "array" or "dictionary" and the number of its elements or entries,
//        which follow; an entry is its key and its value.

namespace platform::notifications::format {

inline constexpr const char* path = "/com/tavix/DistributedNotifications";
inline constexpr const char* interface = "com.tavix.DistributedNotifications";
inline constexpr const char* member = "Notification";
inline constexpr const char* signature = "ssasav";
inline constexpr const char* match =
    "type='signal',interface='com.tavix.DistributedNotifications',member='Notification'";

inline constexpr const char* array = "array";
inline constexpr const char* dictionary = "dictionary";

/// Containers within containers that are sent as they are. A level takes up to three of the 64 that the bus
/// allows.
inline constexpr int nestedLevels = 16;
/// The nesting that a reader accepts.
inline constexpr int mostNestedLevels = 32;
/// Values in one user info, and their estimated bytes. A bus without limits of its own refuses messages above
/// 32 MiB and disconnects their sender. A larger user info is left out of the notification.
inline constexpr std::size_t mostValues = 1'500'000;
inline constexpr std::size_t mostBytes = std::size_t{30} * 1024 * 1024;

} // namespace platform::notifications::format
