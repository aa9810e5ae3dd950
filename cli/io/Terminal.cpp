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

/// The settings before the echo was switched off; valid while hidden.
termios before{};
volatile std::sig_atomic_t hidden = 0;

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

void hide() {
    if (hidden || tcgetattr(STDIN_FILENO, &before) != 0)
        return;
    termios quiet = before;
    quiet.c_lflag &= ~static_cast<tcflag_t>(ECHO);
    quiet.c_lflag |= ECHONL;
    quiet.c_cc[VQUIT] = _POSIX_VDISABLE;
    hidden = 1;
    tcsetattr(STDIN_FILENO, TCSAFLUSH, &quiet);
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
    hide();
}

Terminal::Hidden::~Hidden() {
    restore();
}

Terminal::GivenBack::GivenBack() : wasHidden_(hidden) {
    restore();
}

Terminal::GivenBack::~GivenBack() {
    if (wasHidden_)
        hide();
}

void Terminal::restore() {
    if (!hidden)
        return;
    hidden = 0;
    tcsetattr(STDIN_FILENO, TCSANOW, &before);
}

} // namespace wardlock::cli
