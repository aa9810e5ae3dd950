#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace wardlock::test {

/// How a process ended and what it printed.
struct ProcessResult {
    /// Its exit code, or -1 when a signal ended it.
    int exitCode = -1;
    /// The signal that ended it, or 0.
    int signal = 0;
    std::string output;
    std::string errors;
};

/// What a process starts with besides its program and arguments.
struct ProcessSetup {
    /// Changes to the environment it inherits; none unsets.
    std::map<std::string, std::optional<std::string>> environment;
    /// What it reads from standard input.
    std::string input;
    /// Whether standard output is closed from the start.
    bool closedOutput = false;
};

/// Another program, run by a test beside itself. Every wait is bounded; one that runs out is a failed
/// expectation. A process still running at the end of this object's life is killed.
class Process {
public:
    /// Throws std::system_error when the program cannot be started.
    explicit Process(const std::string& program, const std::vector<std::string>& arguments = {},
                     const ProcessSetup& setup = {});
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    int id() const { return pid_; }
    /// Waits until standard output contains another whole line and takes it; none when the output ended.
    std::optional<std::string> readLine();
    /// Waits until standard error contains the text.
    bool waitForError(std::string_view text);
    void send(int signal) const;
    /// Its standard output has no reader from now on.
    void closeOutput();
    /// Waits for its end. Standard output contains what readLine() has not taken.
    ProcessResult wait();

private:
    /// Reads what is there, waiting for it until the deadline; false when nothing more can come or the time
    /// is up.
    bool readMore(std::chrono::steady_clock::time_point deadline);
    void reap(std::chrono::steady_clock::time_point deadline);

    int pid_ = -1;
    int processDescriptor_ = -1;
    int output_ = -1;
    int errors_ = -1;
    ProcessResult result_;
};

/// Runs a program to its end.
ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments = {},
                         const ProcessSetup& setup = {});

} // namespace wardlock::test
