#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace platform::bus {

/// Runs a program that puts itself into the background, in a session of its own, without any of our
/// descriptors, and waits until the started process has ended. True: it ended well in time; one that takes
/// longer is ended.
bool runDaemon(const std::vector<std::string>& command, std::chrono::milliseconds timeout);

} // namespace platform::bus
