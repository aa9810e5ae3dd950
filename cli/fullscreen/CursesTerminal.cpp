#include "cli/fullscreen/CursesTerminal.h"

#include "cli/fullscreen/CursesKeys.h"
#include "cli/fullscreen/CursesLooks.h"
#include "cli/fullscreen/DirectColours.h"

#include <array>
#include <csignal>
#include <cstdio>
#include <poll.h>
#include <string_view>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>
// Last: it defines macros.
#define NCURSES_NOMACROS 1
#include <curses.h>
#include <term.h>

namespace wardlock::cli {

namespace {

SCREEN* taken = nullptr;
volatile std::sig_atomic_t shown = 0;
/// Whether replies of the terminal may still come.
volatile std::sig_atomic_t replying = 0;

/// The library installs handlers for signals. They would never run: the loop takes these signals.
class KeptHandlers {
public:
    KeptHandlers() {
        for (std::size_t i = 0; i < signals.size(); ++i)
            sigaction(signals[i], nullptr, &before_[i]);
    }
    ~KeptHandlers() {
        for (std::size_t i = 0; i < signals.size(); ++i)
            sigaction(signals[i], &before_[i], nullptr);
    }
    KeptHandlers(const KeptHandlers&) = delete;
    KeptHandlers& operator=(const KeptHandlers&) = delete;

private:
    static constexpr std::array signals{SIGINT, SIGTERM, SIGTSTP, SIGWINCH};
    std::array<struct sigaction, signals.size()> before_{};
};

/// Returns a string of the terminal's description; null where it has none of that name.
const char* capability(const char* name) {
    const char* text = tigetstr(name);
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how the library reports a name of another kind
    return text == reinterpret_cast<const char*>(-1) ? nullptr : text;
}

void put(const char* name) {
    if (const char* text = capability(name))
        putp(text);
    fflush(stdout);
}

/// Ctrl+\ would end the process and leave the terminal as it is; Ctrl+S would stop the output.
void changeModes() {
    cbreak();
    noecho();
    nonl();
    termios modes{};
    if (tcgetattr(STDIN_FILENO, &modes) != 0)
        return;
    modes.c_cc[VQUIT] = _POSIX_VDISABLE;
    modes.c_iflag &= ~static_cast<tcflag_t>(IXON);
    tcsetattr(STDIN_FILENO, TCSANOW, &modes);
    def_prog_mode();
}

} // namespace

std::unique_ptr<CursesTerminal> CursesTerminal::open(const TerminalTraits& traits) {
    std::unique_ptr<CursesTerminal> terminal(new CursesTerminal(traits.utf8));
    const KeptHandlers handlers;
    use_env(false);
    TerminalTraits found = traits;
    if (traits.depth == ColourDepth::Full) {
        const DirectColours colours;
        taken = newterm(nullptr, stdout, stdin);
        found.depth = colours.areFound() ? ColourDepth::Full : ColourDepth::Palette;
    } else {
        taken = newterm(nullptr, stdout, stdin);
    }
    if (!taken)
        return nullptr;
    terminal->enter();
    terminal->coloured_ = setLooks(found);
    return terminal;
}

CursesTerminal::~CursesTerminal() {
    restore();
    if (taken)
        delscreen(taken);
    taken = nullptr;
}

void CursesTerminal::enter() {
    shown = 1;
    changeModes();
    setKeys();
    put("BE");
}

void CursesTerminal::restore() noexcept {
    if (!shown)
        return;
    shown = 0;
    put("BD");
    curs_set(1);
    endwin();
    if (replying)
        tcflush(STDIN_FILENO, TCIFLUSH);
}

void CursesTerminal::suspend() {
    restore();
}

void CursesTerminal::resume() {
    shown = 1;
    followSize();
    forgetScreen();
    refresh();
    put("BE");
}

void CursesTerminal::forgetScreen() {
    reset_prog_mode();
    clearok(curscr, true);
}

bool CursesTerminal::askForGround() {
    constexpr std::string_view questions = "\033]11;?\007\033[c";
    if (!coloured_ || write(STDOUT_FILENO, questions.data(), questions.size()) < 0)
        return false;
    replying = 1;
    return true;
}

void CursesTerminal::noteReplies() {
    replying = 0;
}

bool CursesTerminal::followSize() {
    winsize size{};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_row == 0 || size.ws_col == 0)
        return false;
    if (!is_term_resized(size.ws_row, size.ws_col))
        return false;
    resizeterm(size.ws_row, size.ws_col);
    return true;
}

bool CursesTerminal::isLost() const {
    pollfd watched{STDIN_FILENO, POLLIN, 0};
    return poll(&watched, 1, 0) > 0 && (watched.revents & (POLLHUP | POLLERR | POLLNVAL)) != 0;
}

} // namespace wardlock::cli
