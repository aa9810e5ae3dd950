#include "tests/support/TerminalProcess.h"

#include "tests/support/TestTimeout.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace wardlock::test {

namespace {

winsize asWinsize(TerminalProcess::Size size) {
    winsize window{};
    window.ws_col = size.columns;
    window.ws_row = size.lines;
    return window;
}

} // namespace

TerminalProcess::TerminalProcess(const std::string& program, const std::vector<std::string>& arguments,
                                 Size size) {
    std::vector<char*> words{const_cast<char*>(program.c_str())};
    for (const auto& argument : arguments)
        words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const winsize window = asWinsize(size);
    pid_ = forkpty(&terminal_, nullptr, nullptr, &window);
    if (pid_ < 0)
        throw std::system_error(errno, std::generic_category(), "forkpty");
    if (pid_ == 0) {
        execv(program.c_str(), words.data());
        _exit(127);
    }
}

TerminalProcess::~TerminalProcess() {
    if (pid_ > 0) {
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
    }
    hangUp();
}

void TerminalProcess::hangUp() {
    if (terminal_ >= 0)
        close(std::exchange(terminal_, -1));
}

std::string TerminalProcess::waitFor(std::string_view text) {
    while (true) {
        const std::size_t found = output_.find(text);
        if (found != std::string::npos) {
            std::string taken = output_.substr(0, found + text.size());
            output_.erase(0, found + text.size());
            return taken;
        }
        if (!readMore()) {
            ADD_FAILURE() << "the terminal never showed \"" << text << "\", but:\n" << output_;
            return {};
        }
    }
}

std::string TerminalProcess::takeMore() {
    if (output_.empty())
        readMore();
    return std::exchange(output_, {});
}

bool TerminalProcess::readMore() {
    pollfd watched{terminal_, POLLIN, 0};
    if (poll(&watched, 1, testTimeoutMilliseconds) <= 0)
        return false;
    std::array<char, 4096> room{};
    const ssize_t count = read(terminal_, room.data(), room.size());
    if (count <= 0)
        return false;
    output_.append(room.data(), static_cast<std::size_t>(count));
    return true;
}

void TerminalProcess::type(std::string_view keys) {
    EXPECT_EQ(write(terminal_, keys.data(), keys.size()), static_cast<ssize_t>(keys.size()));
}

void TerminalProcess::resize(Size size) {
    const winsize window = asWinsize(size);
    EXPECT_EQ(ioctl(terminal_, TIOCSWINSZ, &window), 0);
}

void TerminalProcess::send(int signal) const {
    // Once it has been waited for there is no such process; kill would take -1 for every process there is.
    ASSERT_GT(pid_, 0) << "the process has ended";
    EXPECT_EQ(kill(pid_, signal), 0);
}

bool TerminalProcess::echoes() const {
    return (modes().c_lflag & ECHO) != 0;
}

termios TerminalProcess::modes() const {
    termios modes{};
    EXPECT_EQ(tcgetattr(terminal_, &modes), 0);
    return modes;
}

int TerminalProcess::wait() {
    while (terminal_ >= 0 && readMore()) {
    }
    int status = 0;
    EXPECT_EQ(waitpid(pid_, &status, 0), pid_);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace wardlock::test
