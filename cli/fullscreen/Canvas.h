#pragma once

#include "cli/fullscreen/Glyphs.h"
#include "cli/fullscreen/Key.h"
#include "cli/fullscreen/Role.h"

#include <optional>
#include <string>
#include <string_view>

namespace wardlock::cli {

/// What is drawn on, a whole screen at a time. Everything is clipped to the screen. Control characters in a
/// text are shown as escapes. On an ASCII terminal each column of another character becomes a sign like it,
/// or a question mark. Precondition: a CursesTerminal exists.
class Canvas {
public:
    explicit Canvas(bool utf8) : utf8_(utf8), glyphs_(utf8 ? Glyphs() : Glyphs::ascii()) {}

    const Glyphs& glyphs() const { return glyphs_; }
    std::size_t lines() const;
    std::size_t columns() const;
    Area screen() const { return {{}, lines(), columns()}; }

    /// Begins an empty screen without a caret.
    void begin();
    void put(Point point, std::string_view text, Role role);
    /// Writes the text that ends before the column.
    void putBefore(Point end, std::string_view text, Role role);
    void putCentred(const Area& line, std::string_view text, Role role);
    void fill(const Area& area, Role role);
    /// Clears the area and draws a frame on its edge.
    void frame(const Area& area, Role role);
    /// Shows the terminal's caret there.
    void setCaret(Point point) { caret_ = point; }
    void hideCaret() { caret_.reset(); }
    /// Shows what was drawn.
    void end();

private:
    std::string ascii(std::string_view text) const;

    bool utf8_;
    Glyphs glyphs_;
    std::optional<Point> caret_;
};

/// Returns the text `count` times.
std::string repeated(std::string_view text, std::size_t count);

} // namespace wardlock::cli
