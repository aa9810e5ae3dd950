#pragma once

#include "cli/fullscreen/Canvas.h"
#include "cli/fullscreen/Hint.h"
#include "cli/fullscreen/Key.h"
#include "cli/io/Refusal.h"

#include <string>
#include <utility>
#include <vector>

namespace wardlock::cli {

/// What covers the page and takes all keys: the keypad, an alert, the mail sheet, the help.
class Sheet {
public:
    Sheet() = default;
    virtual ~Sheet() = default;
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    virtual void draw(Canvas& canvas) = 0;
    virtual void handle(const Key& key) = 0;
    virtual std::vector<Hint> hints(const Glyphs& glyphs) const = 0;
    /// Why the last key had no effect; empty when it had.
    const std::string& message() const { return message_; }

protected:
    void setMessage(std::string message) { message_ = std::move(message); }
    /// Has the reason as the message when the input was refused.
    void report(const shell::InputResult& result) { message_ = refusalText(result); }

private:
    std::string message_;
};

/// Returns the area of that size in the middle of the screen, above its last line; smaller where the screen
/// is.
Area centred(const Canvas& canvas, std::size_t lines, std::size_t columns);

} // namespace wardlock::cli
