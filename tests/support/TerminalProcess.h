#pragma once

#include <string>
#include <string_view>
#include <termios.h>
#include <vector>

namespace wardlock::test {

/// A program in its own terminal: what the user sees of it and types into it. Every wait is bounded; one
/// that runs out is a failed expectation. A program still running at the end of this object's life is killed.
class TerminalProcess {
public:
    struct Size {
        unsigned short columns = 80;
        unsigned short lines = 24;
    };

    TerminalProcess(const std::string& program, const std::vector<std::string>& arguments)
        : TerminalProcess(program, arguments, Size()) {}
    TerminalProcess(const std::string& program, const std::vector<std::string>& arguments, Size size);
    ~TerminalProcess();
    TerminalProcess(const TerminalProcess&) = delete;
    TerminalProcess& operator=(const TerminalProcess&) = delete;

    /// Waits until the screen has shown the text since the last call, and returns everything up to its end.
    std::string waitFor(std::string_view text);
    /// Waits for more output, and returns all that was not taken; empty when nothing more comes.
    std::string takeMore();
    void type(std::string_view keys);
    void resize(Size size);
    void send(int signal) const;
    /// The terminal is gone: nothing is shown or typed from now on.
    void hangUp();
    /// Whether typed characters are shown now.
    bool echoes() const;
    /// Returns how the terminal treats what is typed now.
    termios modes() const;
    /// Waits for its end; its exit code, or -1 when a signal ended it.
    int wait();
    /// What was shown and not yet taken.
    const std::string& output() const { return output_; }

private:
    bool readMore();

    int pid_ = -1;
    int terminal_ = -1;
    std::string output_;
};

} // namespace wardlock::test
