#include "cli/io/Terminal.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <string_view>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace wardlock::cli {

namespace {

enum Mode : std::sig_atomic_t { Usual, Hiding, Unbuffering };

/// The settings before they were changed; valid in any other mode than the usual one.
termios before{};
volatile std::sig_atomic_t mode = Usual;

winsize size() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0)
        size = {};
    return size;
}

std::string_view variable(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

/// Changes the settings; no effect where they have been changed already.
void enter(std::sig_atomic_t wanted) {
    if (mode != Usual || wanted == Usual || tcgetattr(STDIN_FILENO, &before) != 0)
        return;
    termios changed = before;
    changed.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    changed.c_cc[VQUIT] = _POSIX_VDISABLE;
    if (wanted == Hiding) {
        changed.c_lflag |= ECHONL;
    } else {
        changed.c_lflag &= ~static_cast<tcflag_t>(ICANON);
        changed.c_cc[VMIN] = 1;
        changed.c_cc[VTIME] = 0;
    }
    mode = wanted;
    // What was typed before a hidden prompt is discarded; before any other prompt, it is kept.
    tcsetattr(STDIN_FILENO, wanted == Hiding ? TCSAFLUSH : TCSANOW, &changed);
}

} // namespace

bool Terminal::readsInput() {
    return isatty(STDIN_FILENO) != 0;
}

bool Terminal::showsOutput() {
    return isatty(STDOUT_FILENO) != 0;
}

bool Terminal::hasColours() {
    return showsOutput() && variable("NO_COLOR").empty() && variable("TERM") != "dumb" &&
           !variable("TERM").empty();
}

std::size_t Terminal::columns() {
    constexpr std::size_t usual = 80;
    const std::size_t columns = size().ws_col;
    return columns == 0 ? usual : std::clamp<std::size_t>(columns, 20, 100);
}

std::size_t Terminal::lines() {
    constexpr std::size_t usual = 24;
    const std::size_t lines = size().ws_row;
    return lines == 0 ? usual : std::max<std::size_t>(lines, 10);
}

Terminal::Hidden::Hidden() {
    enter(Hiding);
}

Terminal::Hidden::~Hidden() {
    restore();
}

Terminal::Unbuffered::Unbuffered() {
    enter(Unbuffering);
}

Terminal::Unbuffered::~Unbuffered() {
    restore();
}

Terminal::GivenBack::GivenBack() : mode_(mode) {
    restore();
}

Terminal::GivenBack::~GivenBack() {
    enter(mode_);
}

void Terminal::restore() {
    if (mode == Usual)
        return;
    mode = Usual;
    tcsetattr(STDIN_FILENO, TCSANOW, &before);
}

} // namespace wardlock::cli
