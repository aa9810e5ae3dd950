#pragma once

#include <stdexcept>
#include <string>

namespace wardlock::cli {

/// The command's exit codes; scripts rely on them.
enum class ExitCode { Done = 0, Failed = 1, WrongUsage = 2, NotAPropertyList = 3 };

/// Ends a verb: the message is printed to standard error as one line, and the process ends with the code.
class CommandError : public std::runtime_error {
public:
    CommandError(ExitCode code, const std::string& message) : std::runtime_error(message), code_(code) {}

    ExitCode code() const { return code_; }

private:
    ExitCode code_;
};

/// Ends a verb whose output no longer has a reader, quietly: the reader has all that it wanted.
class ReaderGone : public CommandError {
public:
    ReaderGone() : CommandError(ExitCode::Failed, "the reader of the output is gone") {}
};

} // namespace wardlock::cli
