#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform::posix {

/// How another program ended.
struct ProgramResult {
    /// Its exit code; -1 when a signal ended it.
    int exitCode = -1;
    /// The first 64 KiB of its standard output.
    std::string output;
};

/// Returns where the search path has the program; nothing when it has not.
std::optional<std::string> findProgram(std::string_view name);

// Each of these starts a program of the search path without a shell, in a session of its own. Input and
// errors are on /dev/null; no descriptor is inherited and no signal blocked or ignored. Any thread.

/// Runs a program to its end and returns its output. Returns nothing when it cannot be started or has not
/// ended within `timeout`; then it is ended.
std::optional<ProgramResult> runProgram(const std::vector<std::string>& words,
                                        std::chrono::milliseconds timeout);

/// Starts a program that continues by itself; its output is discarded. Returns its exit code when it ends
/// within `timeout`, 0 when it is still running then, and nothing when it cannot be started.
std::optional<int> startProgram(const std::vector<std::string>& words, std::chrono::milliseconds timeout);

enum class DaemonStart { Succeeded, Failed, TimedOut };

/// Starts a program that puts itself into the background, without this process's environment, and waits until
/// the started process has ended. One that has not within `timeout` is ended.
DaemonStart startDaemon(const std::vector<std::string>& words, std::chrono::milliseconds timeout);

} // namespace platform::posix
