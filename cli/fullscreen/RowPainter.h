#pragma once

#include "cli/fullscreen/Canvas.h"
#include "cli/fullscreen/TextEditor.h"
#include "shell/screen/Row.h"
#include "shell/screen/TableRow.h"

#include <optional>

namespace wardlock::cli {

/// Draws rows in one line each: the name on the left, the value on the right.
class RowPainter {
public:
    /// `line` is the line of the row, from edge to edge of the page.
    RowPainter(Canvas& canvas, const Area& line, bool hasCursor);

    /// With an editor, the row's text is being typed.
    void draw(const shell::Row& row, const TextEditor* editor);
    void draw(const shell::TableRow& row);
    /// Returns the value of a slider at that column; none beside its track.
    std::optional<double> sliderValueAt(const shell::Row& row, std::size_t column) const;

private:
    Role role(Role wanted) const { return hasCursor_ ? Role::Cursor : wanted; }
    void drawSwitch(const std::string& label, bool on, bool enabled);
    void drawSlider(const shell::Row& row);
    void drawField(const shell::Row& row, const TextEditor* editor);
    /// Draws name and value; the value is truncated for the name, down to half of the line.
    void drawTexts(const std::string& label, Role labelRole, const std::string& value, Role valueRole);
    Area track() const;

    Canvas& canvas_;
    Area line_;
    bool hasCursor_;
    /// Where texts begin, and the column after their end.
    std::size_t left_;
    std::size_t right_;
};

} // namespace wardlock::cli
