#pragma once

#include "tests/unit/cli/CommandFixture.h"

#include <cerrno>
#include <fstream>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <system_error>

namespace wardlock::test {

/// A script that continues while the test does other things: commands go through a named pipe.
class Conversation {
public:
    explicit Conversation(const std::string& pipe) {
        if (mkfifo(pipe.c_str(), 0600) != 0)
            throw std::system_error(errno, std::generic_category(), "mkfifo");
        process_.emplace(command, std::vector<std::string>{"settings", "--script", pipe});
        commands_.open(pipe);
    }
    void send(const std::string& line) { commands_ << line << std::endl; }
    /// Returns the reply.
    std::string say(const std::string& line) {
        send(line);
        return process_->readLine().value_or("");
    }
    Process& process() { return *process_; }

private:
    std::optional<Process> process_;
    std::ofstream commands_;
};

} // namespace wardlock::test
