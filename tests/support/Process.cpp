#include "tests/support/Process.h"

#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace wardlock::test {

namespace {

using Clock = std::chrono::steady_clock;

int millisecondsUntil(Clock::time_point deadline) {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

[[noreturn]] void fail(const std::string& what) {
    throw std::system_error(errno, std::generic_category(), what);
}

/// A descriptor that reads as the text: memory, so that no amount of input blocks the test.
int inputDescriptor(const std::string& text) {
    const int descriptor = memfd_create("input", MFD_CLOEXEC);
    if (descriptor < 0 || write(descriptor, text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
        lseek(descriptor, 0, SEEK_SET) != 0)
        fail("input");
    return descriptor;
}

std::array<int, 2> makePipe() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        fail("pipe");
    return ends;
}

std::vector<std::string> environmentWith(const ProcessSetup& setup) {
    std::vector<std::string> variables;
    for (char** variable = environ; *variable; ++variable) {
        const std::string text = *variable;
        if (!setup.environment.contains(text.substr(0, text.find('='))))
            variables.push_back(text);
    }
    for (const auto& [name, value] : setup.environment)
        if (value)
            variables.push_back(name + '=' + *value);
    return variables;
}

std::vector<char*> pointers(std::vector<std::string>& words) {
    std::vector<char*> result;
    for (std::string& word : words)
        result.push_back(word.data());
    result.push_back(nullptr);
    return result;
}

void closeDescriptor(int& descriptor) {
    if (descriptor >= 0)
        close(descriptor);
    descriptor = -1;
}

} // namespace

Process::Process(const std::string& program, const std::vector<std::string>& arguments,
                 const ProcessSetup& setup) {
    std::vector<std::string> words{program};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<std::string> variables = environmentWith(setup);
    const std::vector<char*> argv = pointers(words);
    const std::vector<char*> envp = pointers(variables);
    const int input = inputDescriptor(setup.input);
    const std::array<int, 2> output = makePipe();
    const std::array<int, 2> errors = makePipe();
    pid_ = fork();
    if (pid_ < 0)
        fail("fork");
    if (pid_ == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        dup2(input, 0);
        dup2(output[1], 1);
        dup2(errors[1], 2);
        if (setup.closedOutput)
            close(1);
        execve(program.c_str(), argv.data(), envp.data());
        _exit(127);
    }
    close(input);
    close(output[1]);
    close(errors[1]);
    output_ = output[0];
    errors_ = errors[0];
    processDescriptor_ = static_cast<int>(syscall(SYS_pidfd_open, pid_, 0));
    if (processDescriptor_ < 0)
        fail("pidfd_open");
}

Process::~Process() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    closeDescriptor(processDescriptor_);
    closeDescriptor(output_);
    closeDescriptor(errors_);
}

bool Process::readMore(Clock::time_point deadline) {
    std::array<pollfd, 2> waits{pollfd{output_, POLLIN, 0}, pollfd{errors_, POLLIN, 0}};
    if (output_ < 0 && errors_ < 0)
        return false;
    if (poll(waits.data(), waits.size(), millisecondsUntil(deadline)) <= 0) {
        ADD_FAILURE() << "process " << pid_
                      << " did not print the awaited text in time; so far: " << result_.output
                      << result_.errors;
        return false;
    }
    for (const pollfd& wait : waits) {
        if (wait.revents == 0)
            continue;
        std::array<char, 65536> bytes;
        const ssize_t count = read(wait.fd, bytes.data(), bytes.size());
        const bool isOutput = wait.fd == output_;
        if (count > 0)
            (isOutput ? result_.output : result_.errors)
                .append(bytes.data(), static_cast<std::size_t>(count));
        else
            closeDescriptor(isOutput ? output_ : errors_);
    }
    return true;
}

std::optional<std::string> Process::readLine() {
    const auto deadline = Clock::now() + testTimeout;
    std::size_t end;
    while ((end = result_.output.find('\n')) == std::string::npos)
        if (output_ < 0 || !readMore(deadline))
            return std::nullopt;
    std::string line = result_.output.substr(0, end);
    result_.output.erase(0, end + 1);
    return line;
}

bool Process::waitForError(std::string_view text) {
    const auto deadline = Clock::now() + testTimeout;
    while (result_.errors.find(text) == std::string::npos)
        if (errors_ < 0 || !readMore(deadline))
            return false;
    return true;
}

void Process::send(int signal) const {
    // Once it has been waited for there is no such process; kill would take -1 for every process there is.
    ASSERT_GT(pid_, 0) << "the process has ended";
    kill(pid_, signal);
}

void Process::closeOutput() {
    closeDescriptor(output_);
}

void Process::reap(Clock::time_point deadline) {
    pollfd wait{processDescriptor_, POLLIN, 0};
    if (poll(&wait, 1, millisecondsUntil(deadline)) != 1) {
        ADD_FAILURE() << "process " << pid_ << " did not end in time";
        kill(pid_, SIGKILL);
    }
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    result_.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result_.signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0;
}

ProcessResult Process::wait() {
    const auto deadline = Clock::now() + testTimeout;
    while (readMore(deadline)) {
    }
    if (pid_ > 0)
        reap(deadline);
    return result_;
}

ProcessResult runProcess(const std::string& program, const std::vector<std::string>& arguments,
                         const ProcessSetup& setup) {
    return Process(program, arguments, setup).wait();
}

} // namespace wardlock::test
