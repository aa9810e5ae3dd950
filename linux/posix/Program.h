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

/// Runs a program of the search path, without a shell, its input and errors closed to /dev/null, and waits
/// for its end. None when it cannot be started or has not ended in time; it is then ended. From any thread.
std::optional<ProgramResult> runProgram(const std::vector<std::string>& words,
                                        std::chrono::milliseconds timeout);

/// Starts one that goes on by itself, in a session of its own; its output goes nowhere. Answers its exit code
/// when it ends within `patience`, 0 when it is still running then, and none when it cannot be started.
std::optional<int> startProgram(const std::vector<std::string>& words, std::chrono::milliseconds patience);

} // namespace platform::posix
