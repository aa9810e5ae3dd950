#include "cli/fullscreen/MailSheet.h"

#include "cli/fullscreen/FieldPainter.h"
#include "cli/fullscreen/PageLayout.h"
#include "cli/fullscreen/TextLayout.h"
#include "cli/io/MailAddresses.h"
#include "cli/io/TextWidth.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

constexpr std::size_t labelColumns = 9;

} // namespace

MailSheet::MailSheet(shell::SettingsApplication& settings,
                     std::shared_ptr<platform::MFMailComposeViewController> composer)
    : settings_(settings), composer_(std::move(composer)),
      to_(joinedAddresses(composer_->message().recipients)), subject_(composer_->message().subject),
      body_(composer_->message().body, TextEditor::Lines::Many) {
    body_.moveTo(0);
}

void MailSheet::handle(const Key& key) {
    setMessage({});
    if (composer_->isSending())
        setMessage("The mail is being sent.");
    else if (key.kind == KeyKind::Escape)
        report(settings_.sheets().cancelMail());
    else if (key.isControl('s'))
        report(settings_.sheets().sendMail());
    else if (key.kind == KeyKind::Tab || key.kind == KeyKind::BackTab)
        moveFocus(key.kind == KeyKind::Tab ? 1 : -1);
    else if (key.kind == KeyKind::MousePress)
        pressMouse(key.point);
    else
        handleItem(key);
}

void MailSheet::handleItem(const Key& key) {
    const bool up = key.kind == KeyKind::Up || key.kind == KeyKind::WheelUp;
    const bool down = key.kind == KeyKind::Down || key.kind == KeyKind::WheelDown;
    const bool isPage = key.kind == KeyKind::PageUp || key.kind == KeyKind::PageDown;
    if (focus_ == Body && (up || down))
        moveInBody(up ? -1 : 1);
    else if (focus_ == Body && isPage)
        moveInBody(key.kind == KeyKind::PageUp ? -10 : 10);
    else if (up || down)
        moveFocus(up ? -1 : 1);
    else if (focus_ <= Body && !(focus_ != Body && key.kind == KeyKind::Enter))
        type(key);
    else if (focus_ < Body)
        moveFocus(1);
    else if (key.kind == KeyKind::Left || key.kind == KeyKind::Right)
        moveFocus(key.kind == KeyKind::Left ? -1 : 1);
    else if (isAttachment(focus_) && (key.kind == KeyKind::Delete || key.kind == KeyKind::Backspace))
        report(settings_.sheets().removeAttachment(focus_ - FirstAttachment));
    else if (key.kind == KeyKind::Enter || key.is(' '))
        press(focus_);
}

void MailSheet::moveFocus(std::ptrdiff_t step) {
    const auto count = static_cast<std::ptrdiff_t>(cancel() + 1);
    focus_ = static_cast<std::size_t>((static_cast<std::ptrdiff_t>(focus_) + step + count) % count);
}

void MailSheet::moveInBody(std::ptrdiff_t lines) {
    const std::size_t columns = areas_.size() > Body ? areas_[Body].columns : 1;
    const TextLayout layout(body_.text(), columns);
    Point place = layout.place(body_.caret());
    const auto line = static_cast<std::ptrdiff_t>(place.line) + lines;
    if (line < 0 && place.line == 0)
        return moveFocus(-1);
    if (place.line + 1 == layout.lines().size() && lines > 0)
        return moveFocus(1);
    const auto last = static_cast<std::ptrdiff_t>(layout.lines().size()) - 1;
    place.line = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(line, 0, last));
    body_.moveTo(layout.position(place));
}

void MailSheet::press(std::size_t item) {
    if (item == send())
        report(settings_.sheets().sendMail());
    else if (item == cancel())
        report(settings_.sheets().cancelMail());
    else if (isAttachment(item))
        setMessage("Delete removes the attachment.");
}

void MailSheet::type(const Key& key) {
    TextEditor& editor = focus_ == To ? to_ : focus_ == Subject ? subject_ : body_;
    if (editor.handle(key) != TextEditor::Outcome::Changed)
        return;
    if (focus_ == To)
        report(settings_.sheets().setRecipients(addressesIn(to_.text())));
    else if (focus_ == Subject)
        report(settings_.sheets().setSubject(subject_.text()));
    else
        report(settings_.sheets().setBody(body_.text()));
}

void MailSheet::pressMouse(Point point) {
    for (std::size_t item = 0; item < areas_.size(); ++item)
        if (areas_[item].contains(point)) {
            focus_ = item;
            if (item == Body)
                body_.moveTo(TextLayout(body_.text(), areas_[Body].columns)
                                 .position({point.line - areas_[Body].start.line + bodyTop_,
                                            point.column - areas_[Body].start.column}));
            else
                press(item);
            return;
        }
}

void MailSheet::draw(Canvas& canvas) {
    const PageLayout layout(canvas);
    focus_ = std::min(focus_, cancel());
    canvas.fill(canvas.screen(), Role::Text);
    areas_.assign(cancel() + 1, {});
    Area line{{0, layout.body.start.column + PageLayout::margin}, 1, layout.textColumns()};
    drawHeader(canvas, line);
    line.start.line = 2;
    drawField(canvas, line, To, "To:");
    line.start.line = 3;
    drawField(canvas, line, Subject, "Subject:");
    const std::size_t last = layout.status.start.line;
    // The text has most of the room, and two lines at least.
    const std::size_t attached = std::min(attachmentCount(), last - std::min<std::size_t>(last, 7));
    const std::size_t bodyLines = last - std::min<std::size_t>(last, 5 + attached);
    drawBody(canvas, {{5, line.start.column}, bodyLines, line.columns});
    line.start.line = 5 + bodyLines;
    line.lines = attached;
    drawAttachments(canvas, line);
}

void MailSheet::drawHeader(Canvas& canvas, const Area& area) {
    const auto button = [&](std::size_t item, const std::string& title, std::size_t column) {
        areas_[item] = {{area.start.line, column}, 1, title.size()};
        canvas.put(areas_[item].start, title, focus_ == item ? Role::Cursor : Role::Link);
    };
    canvas.putCentred(area, composer_->isSending() ? "Sending\u2026" : "New Mail", Role::Title);
    button(cancel(), " Cancel ", area.start.column - 1);
    button(send(), " Send ", area.start.column + area.columns - std::min<std::size_t>(area.columns, 5));
    canvas.put({area.start.line + 1, area.start.column - PageLayout::margin},
               repeated(canvas.glyphs().rule, PageLayout(canvas).title.columns), Role::Faint);
}

void MailSheet::drawField(Canvas& canvas, Area line, Item item, const std::string& label) {
    canvas.put(line.start, label, Role::Faint);
    line.start.column += labelColumns;
    line.columns -= std::min(line.columns, labelColumns);
    areas_[item] = line;
    const TextEditor& editor = item == To ? to_ : subject_;
    if (focus_ == item)
        wardlock::cli::drawField(canvas, line.start, line.columns, editor, false);
    else
        canvas.put(line.start, truncated(printable(editor.text()), line.columns), Role::Text);
}

void MailSheet::drawBody(Canvas& canvas, const Area& area) {
    areas_[Body] = area;
    const TextLayout layout(body_.text(), area.columns);
    const Point caret = layout.place(body_.caret());
    const std::size_t height = std::max<std::size_t>(area.lines, 1);
    bodyTop_ = std::clamp(bodyTop_, caret.line - std::min(caret.line, height - 1), caret.line);
    for (std::size_t shown = 0; shown < area.lines && bodyTop_ + shown < layout.lines().size(); ++shown) {
        const auto [begin, end] = layout.lines()[bodyTop_ + shown];
        canvas.put({area.start.line + shown, area.start.column},
                   printable(std::string_view(body_.text()).substr(begin, end - begin)), Role::Text);
    }
    if (focus_ == Body)
        canvas.setCaret({area.start.line + caret.line - bodyTop_, area.start.column + caret.column});
}

void MailSheet::drawAttachments(Canvas& canvas, Area line) {
    const std::size_t shown = line.lines;
    line.lines = 1;
    for (std::size_t index = 0; index < shown; ++index, ++line.start.line) {
        const auto& attachment = composer_->message().attachments[index];
        const std::size_t item = FirstAttachment + index;
        areas_[item] = line;
        const Role role = focus_ == item ? Role::Cursor : Role::Faint;
        canvas.fill(line, role);
        canvas.put(line.start,
                   truncated("Attached: " + printable(attachment.fileName) + ", " +
                                 std::to_string(attachment.data.size()) + " bytes",
                             line.columns),
                   role);
    }
}

std::vector<Hint> MailSheet::hints(const Glyphs&) const {
    if (isAttachment(focus_))
        return {{"Del", "remove"}, {"Tab", "next"}, {"Ctrl+S", "send"}, {"Esc", "cancel"}};
    return {{"Tab", "next"}, {"Ctrl+S", "send"}, {"Esc", "cancel"}};
}

} // namespace wardlock::cli
