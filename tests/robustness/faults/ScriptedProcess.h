#pragma once

#include "tests/support/Process.h"

#include <optional>
#include <string>

namespace wardlock::test {

/// `wardlock settings --script` as another process: one command, one reply.
class ScriptedProcess {
public:
    /// `pipe` is the path of a named pipe that is made for the commands.
    ScriptedProcess(const std::string& pipe, const ProcessSetup& setup);
    ~ScriptedProcess();
    ScriptedProcess(const ScriptedProcess&) = delete;
    ScriptedProcess& operator=(const ScriptedProcess&) = delete;

    /// The reply; none when the process ends instead.
    std::optional<std::string> say(const std::string& command);
    /// Ends the commands, and waits for its end.
    ProcessResult end();

private:
    std::string path_;
    int commands_ = -1;
    std::optional<Process> process_;
};

} // namespace wardlock::test
