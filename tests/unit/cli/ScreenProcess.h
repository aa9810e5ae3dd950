#pragma once

#include "tests/support/TerminalProcess.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>
#include <vterm.h>

namespace wardlock::test {

/// A program in an emulated terminal, which keeps its screen cell by cell. Every wait is bounded; one that
/// runs out is a failed expectation.
class ScreenProcess {
public:
    using Size = TerminalProcess::Size;

    struct Cell {
        std::string text;
        bool bold;
        bool reverse;
        bool underline;
        /// As "default", "index 4" or "#0a4f9e".
        std::string foreground;
        std::string background;
    };

    ScreenProcess(const std::string& program, const std::vector<std::string>& arguments, Size size = {});

    /// The emulator replies to no question from now on. Usually it does, as far as it knows the question.
    void keepSilent() { silent_ = true; }

    /// Waits until a line of the screen contains the text, and returns the first such line.
    std::string waitFor(const std::string& text);
    /// Waits until no line contains it.
    void waitUntilGone(const std::string& text);
    /// Waits until the line is this text. What is drawn at once may come in pieces.
    void waitForLine(int number, const std::string& text);
    /// Waits until the first cell of the text has that background.
    void waitForBackground(const std::string& text, const std::string& colour);
    /// Waits until the caret is shown there.
    void waitForCaret(int line, int column);
    void waitForNoCaret();
    /// Waits until the program has written more.
    void waitForMore();
    bool waitUntil(const std::function<bool()>& condition, const std::string& wanted);

    void type(std::string_view keys) { process_.type(keys); }
    /// Presses and releases the left button of the mouse.
    void click(int line, int column);
    void wheel(bool up);
    void resize(Size size);
    /// Shows bytes of another program.
    void overwrite(const std::string& bytes) { feed(bytes); }
    void send(int signal) const { process_.send(signal); }
    void hangUp() { process_.hangUp(); }
    /// Waits for its end; its exit code, or -1 when a signal ended it.
    int wait();

    std::string line(int number) const;
    std::string screen() const;
    /// The number of the first line with the text; -1 where none has it.
    int lineWith(const std::string& text) const;
    Cell cell(int line, int column) const;
    /// The cell where the text begins, in the first line that has it.
    Cell cellAt(const std::string& text) const;
    bool isSecondScreen() const { return secondScreen_; }
    bool reportsMouse() const;
    bool showsCaret() const { return caretShown_; }
    termios modes() const { return process_.modes(); }
    /// Everything that the program has written.
    const std::string& output() const { return output_; }

private:
    struct Free {
        void operator()(VTerm* terminal) const { vterm_free(terminal); }
    };

    void feed(const std::string& bytes);
    static void reply(const char* bytes, std::size_t count, void* self);
    static int property(VTermProp property, VTermValue* value, void* self);
    static int moved(VTermPos now, VTermPos before, int visible, void* self);

    Size size_;
    std::unique_ptr<VTerm, Free> terminal_;
    VTermScreen* screen_;
    VTermPos caret_{};
    bool silent_ = false;
    bool secondScreen_ = false;
    bool caretShown_ = true;
    std::string output_;
    TerminalProcess process_;
};

} // namespace wardlock::test
