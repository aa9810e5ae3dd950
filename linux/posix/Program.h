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
    /// What it wrote to standard output, its first 64 KiB.
    std::string output;
};

/// Where the search path has the program; none when it has not.
std::optional<std::string> findProgram(std::string_view name);

// Each of these starts a program of the search path without a shell, in a session of its own, with input and
// errors on /dev/null, none of our descriptors and no signal blocked or ignored. From any thread.

/// Runs a program to its end and returns its output. None when it cannot be started or has not ended in time;
/// it is then ended.
std::optional<ProgramResult> runProgram(const std::vector<std::string>& words,
                                        std::chrono::milliseconds timeout);

/// Starts one that goes on by itself; its output goes nowhere. Returns its exit code when it ends within
/// `patience`, 0 when it is still running then, and none when it cannot be started.
std::optional<int> startProgram(const std::vector<std::string>& words, std::chrono::milliseconds patience);

/// Starts one that puts itself into the background, without our environment, and waits until the started
/// process has ended. True: it ended well in time; one that takes longer is ended.
bool startDaemon(const std::vector<std::string>& words, std::chrono::milliseconds timeout);

} // namespace platform::posix
