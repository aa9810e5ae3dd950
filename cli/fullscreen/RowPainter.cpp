#include "cli/fullscreen/RowPainter.h"

#include "cli/fullscreen/FieldPainter.h"
#include "cli/io/RowText.h"
#include "cli/io/TextWidth.h"

#include <algorithm>
#include <cmath>

namespace wardlock::cli {

using shell::Row;
using shell::RowKind;

namespace {

constexpr std::size_t margin = 2;
constexpr std::size_t gap = 2;
constexpr std::size_t longestTrack = 24;
/// Columns of a slider's number, with a blank before it.
constexpr std::size_t numberColumns = 8;

} // namespace

RowPainter::RowPainter(Canvas& canvas, const Area& line, bool hasCursor)
    : canvas_(canvas), line_(line), hasCursor_(hasCursor), left_(line.start.column + margin),
      right_(line.start.column + line.columns - std::min(line.columns, margin)) {
    if (hasCursor)
        canvas_.fill(line, Role::Cursor);
}

void RowPainter::draw(const Row& row, const TextEditor* editor) {
    const Role text = row.enabled ? Role::Text : Role::Faint;
    const std::string label = rowLabel(row);
    const std::string more = " " + std::string(canvas_.glyphs().more);
    switch (row.kind) {
    case RowKind::Switch:
        return drawSwitch(label, row.isOn(), row.enabled);
    case RowKind::Slider:
        return drawSlider(row);
    case RowKind::EditText:
    case RowKind::SecureEditText:
        return drawField(row, editor);
    case RowKind::Link:
        return drawTexts(label, text, more, Role::Faint);
    case RowKind::LinkList:
        return drawTexts(label, text, printable(row.text) + more, Role::Faint);
    case RowKind::StaticText:
        return drawTexts(label, text, row.marked ? std::string(canvas_.glyphs().mark) : "", Role::Link);
    case RowKind::Button:
        return drawTexts(label, row.enabled ? Role::Link : Role::Faint, "", Role::Text);
    }
}

void RowPainter::draw(const shell::TableRow& row) {
    if (row.switchControl())
        drawSwitch(rowLabel(row), row.isOn(), true);
    else
        drawTexts(rowLabel(row), Role::Text, row.detail(), Role::Faint);
}

void RowPainter::drawTexts(const std::string& label, Role labelRole, const std::string& value,
                           Role valueRole) {
    const std::size_t room = right_ - std::min(left_, right_);
    const std::string name = printable(label);
    const std::size_t most = std::max(room / 2, room - std::min(room, columnsOf(name) + gap));
    const std::string shown = truncated(printable(value), most);
    const std::size_t used = shown.empty() ? 0 : columnsOf(shown) + gap;
    canvas_.put({line_.start.line, left_}, truncated(name, room - std::min(room, used)), role(labelRole));
    canvas_.putBefore({line_.start.line, right_}, shown, role(valueRole));
}

void RowPainter::drawSwitch(const std::string& label, bool on, bool enabled) {
    const auto picture = on ? canvas_.glyphs().on : canvas_.glyphs().off;
    drawTexts(label, enabled ? Role::Text : Role::Faint, (on ? "on " : "off ") + std::string(picture),
              on && enabled ? Role::On : Role::Faint);
}

Area RowPainter::track() const {
    const std::size_t columns = std::min(longestTrack, line_.columns / 3);
    const std::size_t end = right_ - std::min(right_, numberColumns);
    return {{line_.start.line, end - std::min(end, columns)}, 1, columns};
}

void RowPainter::drawSlider(const Row& row) {
    const Area track = this->track();
    if (track.columns < 2)
        return drawTexts(rowLabel(row), Role::Text, row.text, Role::Text);
    const double range = row.max - row.min;
    const double part = range > 0 ? (row.position() - row.min) / range : 0;
    const std::size_t before =
        static_cast<std::size_t>(std::lround(part * static_cast<double>(track.columns - 1)));
    const Glyphs& glyphs = canvas_.glyphs();
    const Role text = row.enabled ? Role::Text : Role::Faint;
    canvas_.put({line_.start.line, left_},
                truncated(printable(rowLabel(row)), track.start.column - left_ - 1), role(text));
    canvas_.put(track.start, repeated(glyphs.filled, before) + std::string(glyphs.knob),
                role(row.enabled ? Role::Link : Role::Faint));
    canvas_.put({line_.start.line, track.start.column + before + 1},
                repeated(glyphs.rule, track.columns - 1 - before), role(Role::Faint));
    canvas_.putBefore({line_.start.line, right_}, truncated(row.text, numberColumns - 1), role(text));
}

std::optional<double> RowPainter::sliderValueAt(const Row& row, std::size_t column) const {
    const Area track = this->track();
    if (column < track.start.column || column >= track.start.column + track.columns || track.columns < 2)
        return std::nullopt;
    const double part =
        static_cast<double>(column - track.start.column) / static_cast<double>(track.columns - 1);
    return row.min + part * (row.max - row.min);
}

void RowPainter::drawField(const Row& row, const TextEditor* editor) {
    const std::string label = row.label.empty() ? "" : printable(row.label);
    const std::size_t room = right_ - std::min(left_, right_);
    if (!editor) {
        const bool empty = row.text.empty();
        const std::string value = empty && !row.label.empty() ? row.placeholder : row.text;
        if (row.label.empty())
            return drawTexts(empty ? row.placeholder : row.text, empty ? Role::Faint : Role::Text, "",
                             Role::Text);
        return drawTexts(label, row.enabled ? Role::Text : Role::Faint, value, Role::Faint);
    }
    const std::size_t labelColumns = label.empty() ? 0 : std::min(columnsOf(label), room / 2) + gap;
    if (!label.empty())
        canvas_.put({line_.start.line, left_}, truncated(label, labelColumns - gap), Role::Text);
    wardlock::cli::drawField(canvas_, {line_.start.line, left_ + labelColumns}, room - labelColumns, *editor,
                             row.kind == RowKind::SecureEditText);
}

} // namespace wardlock::cli
