#pragma once

#include "cli/fullscreen/CharacterLocale.h"
#include "cli/fullscreen/TerminalTraits.h"

#include <memory>

namespace wardlock::cli {

/// The terminal while a program has its whole screen: its second screen where it has one, keys without an
/// echo, the mouse. One at a time; the terminal is as before once it is destroyed or restored.
class CursesTerminal {
public:
    /// Takes the terminal of standard input and output. Returns null where nothing is known about it.
    static std::unique_ptr<CursesTerminal> open(const TerminalTraits& traits);
    ~CursesTerminal();
    CursesTerminal(const CursesTerminal&) = delete;
    CursesTerminal& operator=(const CursesTerminal&) = delete;

    /// Gives the terminal back, for every end of the process. No effect where none was taken.
    static void restore() noexcept;
    /// Gives the terminal back until resume(), which draws everything again.
    void suspend();
    void resume();
    /// Draws everything again the next time: another program has used the terminal.
    void forgetScreen();

    /// Asks the terminal for its background, and then for its kind: more terminals reply to that. Returns
    /// false where there are no colours that could fit it.
    bool askForGround();
    /// To be called when the last reply has come. Until then, what comes is discarded when the terminal is
    /// given back, so that no other program takes it for typed text.
    void noteReplies();

    /// Takes on the size of the terminal. Returns whether it has changed.
    bool followSize();
    /// Whether the terminal is gone.
    bool isLost() const;

private:
    explicit CursesTerminal(bool utf8) : characters_(utf8) {}
    void enter();

    CharacterLocale characters_;
    /// Whether there are colours.
    bool coloured_ = false;
};

} // namespace wardlock::cli
