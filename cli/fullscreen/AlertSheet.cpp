#include "cli/fullscreen/AlertSheet.h"

#include "cli/fullscreen/FieldPainter.h"
#include "cli/io/TextWidth.h"

#include <algorithm>

namespace wardlock::cli {

using platform::UIAlertActionStyle;

namespace {

constexpr std::size_t widest = 60;
/// The frame and a blank on each side.
constexpr std::size_t sides = 4;

} // namespace

AlertSheet::AlertSheet(shell::SettingsApplication& settings,
                       std::shared_ptr<platform::UIAlertController> alert)
    : settings_(settings), alert_(std::move(alert)) {
    for (const auto& field : alert_->textFields())
        editors_.emplace_back(field->text());
    if (editors_.empty())
        focus_ = preferredItem();
}

/// Enter pressed once too often must delete nothing.
std::size_t AlertSheet::preferredItem() const {
    const auto& actions = alert_->actions();
    const auto styleOf = [](const auto& action) { return action->style(); };
    auto found = std::ranges::find(actions, UIAlertActionStyle::Default, styleOf);
    if (found == actions.end())
        found = std::ranges::find(actions, UIAlertActionStyle::Cancel, styleOf);
    return fieldCount() + (found == actions.end() ? 0 : static_cast<std::size_t>(found - actions.begin()));
}

void AlertSheet::handle(const Key& key) {
    setMessage({});
    followFields();
    const bool inField = focus_ < fieldCount();
    if (key.kind == KeyKind::Escape)
        cancel();
    else if (key.kind == KeyKind::Tab || key.kind == KeyKind::Down)
        moveFocus(1);
    else if (key.kind == KeyKind::BackTab || key.kind == KeyKind::Up)
        moveFocus(-1);
    else if (key.kind == KeyKind::MousePress) {
        for (std::size_t item = 0; item < areas_.size(); ++item)
            if (areas_[item].contains(key.point)) {
                focus_ = item;
                if (item >= fieldCount())
                    return press(item);
            }
    } else if (key.kind == KeyKind::Enter)
        inField&& focus_ + 1 < fieldCount() ? moveFocus(1) : press(inField ? preferredItem() : focus_);
    else if (inField)
        type(key);
    else if (key.is(' '))
        press(focus_);
    else if (key.kind == KeyKind::Left || key.kind == KeyKind::Right)
        moveFocus(key.kind == KeyKind::Right ? 1 : -1);
}

/// A page may have changed what a field contains.
void AlertSheet::followFields() {
    for (std::size_t field = 0; field < fieldCount(); ++field)
        if (const std::string& text = alert_->textFields()[field]->text(); text != editors_[field].text())
            editors_[field] = TextEditor(text);
}

void AlertSheet::moveFocus(std::ptrdiff_t step) {
    const auto count = static_cast<std::ptrdiff_t>(itemCount());
    if (count > 0)
        focus_ = static_cast<std::size_t>((static_cast<std::ptrdiff_t>(focus_) + step + count) % count);
}

void AlertSheet::press(std::size_t item) {
    if (item < fieldCount() || item >= itemCount())
        return;
    report(settings_.sheets().chooseAlertAction(item - fieldCount()));
}

void AlertSheet::cancel() {
    const auto& actions = alert_->actions();
    const auto found = std::ranges::find(actions, UIAlertActionStyle::Cancel,
                                         [](const auto& action) { return action->style(); });
    if (found != actions.end())
        press(fieldCount() + static_cast<std::size_t>(found - actions.begin()));
    else if (actions.size() == 1)
        press(fieldCount());
}

void AlertSheet::type(const Key& key) {
    if (editors_[focus_].handle(key) == TextEditor::Outcome::Changed)
        report(settings_.sheets().typeIntoAlert(focus_, editors_[focus_].text()));
}

void AlertSheet::draw(Canvas& canvas) {
    followFields();
    const std::size_t width = std::min(widest, canvas.columns());
    const std::size_t inner = width - std::min(width, sides);
    auto message = alert_->message().empty() ? std::vector<std::string>() : wrapped(alert_->message(), inner);
    const std::size_t buttons = buttonLines(inner);
    const std::size_t wanted = 2 + 1 + message.size() + fieldCount() + 2 + buttons;
    const Area box = centred(canvas, wanted, width);
    // A small screen has no room for the blank lines, then none for the end of the message.
    const std::size_t needed = 2 + 1 + fieldCount() + buttons;
    const std::size_t room = box.lines - std::min(box.lines, needed);
    if (message.size() > room) {
        message.resize(room);
        if (!message.empty())
            message.back() = truncated(message.back() + " \u2026", inner);
    }
    const bool spaced = room >= message.size() + 2;
    canvas.frame(box, Role::Faint);
    Area line{{box.start.line + 1, box.start.column + sides / 2}, 1, inner};
    canvas.putCentred(line, alert_->title(), Role::Title);
    for (const auto& text : message) {
        ++line.start.line;
        canvas.putCentred(line, text, Role::Text);
    }
    line.start.line += spaced ? 2 : 1;
    areas_.clear();
    drawFields(canvas, line);
    line.start.line += spaced && fieldCount() > 0 ? 1 : 0;
    drawButtons(canvas, line);
}

void AlertSheet::drawFields(Canvas& canvas, Area& rest) {
    for (std::size_t field = 0; field < fieldCount(); ++field) {
        areas_.push_back(rest);
        const std::string& text = editors_[field].text();
        if (field == focus_) {
            drawField(canvas, rest.start, rest.columns, editors_[field], false);
            if (text.empty())
                canvas.put(rest.start,
                           truncated(printable(alert_->textFields()[field]->placeholder()), rest.columns),
                           Role::Field);
        } else {
            canvas.put(rest.start,
                       truncated(printable(text.empty() ? alert_->textFields()[field]->placeholder() : text),
                                 rest.columns),
                       text.empty() ? Role::Faint : Role::Text);
        }
        ++rest.start.line;
    }
}

bool AlertSheet::buttonsFitInOneLine(std::size_t columns) const {
    const auto& actions = alert_->actions();
    return actions.size() == 2 && std::ranges::all_of(actions, [&](const auto& action) {
               return columnsOf(printable(action->title())) + 2 <= columns / 2;
           });
}

std::size_t AlertSheet::buttonLines(std::size_t columns) const {
    return buttonsFitInOneLine(columns) ? 1 : alert_->actions().size();
}

void AlertSheet::drawButtons(Canvas& canvas, const Area& rest) {
    const std::size_t count = alert_->actions().size();
    const bool inOneLine = buttonsFitInOneLine(rest.columns);
    for (std::size_t action = 0; action < count; ++action) {
        Area area = rest;
        if (inOneLine) {
            area.columns = rest.columns / 2;
            area.start.column += action * (rest.columns - area.columns);
        } else {
            area.start.line += action;
        }
        drawButton(canvas, action, area);
        areas_.push_back(area);
    }
}

void AlertSheet::drawButton(Canvas& canvas, std::size_t action, const Area& area) {
    const auto& button = *alert_->actions()[action];
    const bool hasFocus = focus_ == fieldCount() + action;
    if (hasFocus)
        canvas.fill(area, Role::Cursor);
    const Role role = hasFocus                                            ? Role::Cursor
                      : !button.isEnabled()                               ? Role::Faint
                      : button.style() == UIAlertActionStyle::Destructive ? Role::Danger
                                                                          : Role::Link;
    canvas.putCentred(area, button.title() + (button.isEnabled() ? "" : " (disabled)"), role);
}

std::vector<Hint> AlertSheet::hints(const Glyphs&) const {
    if (focus_ < fieldCount())
        return {{"Enter", "done"}, {"Tab", "buttons"}, {"Esc", "cancel"}};
    return {{"Enter", "press"}, {"Tab", "next"}, {"Esc", "cancel"}};
}

} // namespace wardlock::cli
