#pragma once

#include <chrono>

namespace wardlock::test {

/// How long a test waits for what is sure to come. Every wait ends with the event itself, so only a failure
/// takes this long; a machine that is busy with other things may be a hundred times slower than usual.
inline constexpr std::chrono::seconds testTimeout{120};
inline constexpr int testTimeoutMilliseconds = std::chrono::milliseconds(testTimeout).count();

} // namespace wardlock::test
