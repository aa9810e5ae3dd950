#include "cli/fullscreen/KeypadSheet.h"

#include "cli/io/TextWidth.h"

namespace wardlock::cli {

namespace {

constexpr std::size_t boxColumns = 36;
constexpr std::size_t passcodeLength = 4;
constexpr std::size_t digitColumns = 5;
constexpr std::size_t digitLines = 4;

} // namespace

void KeypadSheet::draw(Canvas& canvas) {
    const std::size_t subtitle = keypad_->shownSubtitle().empty() ? 0 : 1;
    const std::size_t texts = 2 + subtitle;
    const bool hasDigits = canvas.lines() > texts + digitLines + 2;
    const bool spaced = canvas.lines() > texts + digitLines + 5;
    const std::size_t lines = 2 + texts + (spaced ? 3 : 0) + (hasDigits ? digitLines : 0);
    const Area box = centred(canvas, lines, boxColumns);
    canvas.frame(box, Role::Faint);
    Area line{
        {box.start.line + 1, box.start.column + 1}, 1, box.columns - std::min<std::size_t>(box.columns, 2)};
    canvas.putCentred(line, keypad_->shownText(), Role::Title);
    if (subtitle) {
        ++line.start.line;
        canvas.putCentred(line, keypad_->shownSubtitle(), Role::Danger);
    }
    line.start.line += spaced ? 2 : 1;
    drawDots(canvas, line);
    line.start.line += spaced ? 2 : 1;
    digits_ = {};
    if (hasDigits)
        drawDigits(canvas, line);
}

void KeypadSheet::drawDots(Canvas& canvas, const Area& line) {
    const std::size_t entered = keypad_->passcode().size();
    std::string dots;
    for (std::size_t dot = 0; dot < passcodeLength; ++dot)
        dots +=
            (dot ? "  " : "") + std::string(dot < entered ? canvas.glyphs().dot : canvas.glyphs().emptyDot);
    canvas.putCentred(line, dots, Role::Title);
}

void KeypadSheet::drawDigits(Canvas& canvas, const Area& area) {
    const std::size_t left =
        area.start.column + (area.columns - std::min(area.columns, 3 * digitColumns)) / 2;
    for (std::size_t digit = 0; digit < digits_.size(); ++digit) {
        const std::size_t row = digit == 0 ? 3 : (digit - 1) / 3;
        const std::size_t column = digit == 0 ? 1 : (digit - 1) % 3;
        digits_[digit] = {{area.start.line + row, left + column * digitColumns}, 1, digitColumns};
        canvas.putCentred(digits_[digit], std::to_string(digit), Role::Link);
    }
}

void KeypadSheet::handle(const Key& key) {
    setMessage({});
    if (key.kind == KeyKind::Escape)
        report(settings_.sheets().cancelKeypad());
    else if (key.kind == KeyKind::Backspace || key.kind == KeyKind::Delete)
        report(settings_.sheets().pressDelete());
    else if (key.kind == KeyKind::Character && key.character >= '0' && key.character <= '9')
        press(static_cast<int>(key.character - '0'));
    else if (key.is('e') && keypad_->showsEmergencyCallButton())
        report(settings_.sheets().pressEmergency());
    else if (key.kind == KeyKind::MousePress)
        pressAt(key.point);
}

void KeypadSheet::pressAt(Point point) {
    for (std::size_t digit = 0; digit < digits_.size(); ++digit)
        if (digits_[digit].contains(point))
            return press(static_cast<int>(digit));
}

void KeypadSheet::press(int digit) {
    const int failures = keypad_->failures();
    report(settings_.sheets().pressDigit(digit));
    if (keypad_->failures() > failures)
        setMessage("Wrong passcode.");
}

std::vector<Hint> KeypadSheet::hints(const Glyphs&) const {
    std::vector<Hint> hints{{"0-9", "digits"}, {"Backspace", "delete"}, {"Esc", "cancel"}};
    if (keypad_->showsEmergencyCallButton())
        hints.push_back({"e", "emergency"});
    return hints;
}

} // namespace wardlock::cli
