#include "tests/robustness/faults/ScriptedProcess.h"

#include "tests/support/BuildPaths.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wardlock::test {

ScriptedProcess::ScriptedProcess(const std::string& pipe, const ProcessSetup& setup) : path_(pipe) {
    EXPECT_EQ(::mkfifo(path_.c_str(), 0600), 0);
    // For reading as well: so neither this end's opening nor its writing depends on the other one.
    commands_ = ::open(path_.c_str(), O_RDWR | O_CLOEXEC);
    EXPECT_GE(commands_, 0);
    process_.emplace(programFolder() + "/wardlock", std::vector<std::string>{"settings", "--script", path_},
                     setup);
}

ScriptedProcess::~ScriptedProcess() {
    ::unlink(path_.c_str());
    if (commands_ >= 0)
        ::close(commands_);
}

std::optional<std::string> ScriptedProcess::say(const std::string& command) {
    const std::string line = command + '\n';
    EXPECT_EQ(::write(commands_, line.data(), line.size()), static_cast<ssize_t>(line.size()));
    return process_->readLine();
}

ProcessResult ScriptedProcess::end() {
    ::close(commands_);
    commands_ = -1;
    return process_->wait();
}

} // namespace wardlock::test
