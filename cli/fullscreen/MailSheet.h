#pragma once

#include "cli/fullscreen/Sheet.h"
#include "cli/fullscreen/TextEditor.h"
#include "shell/SettingsApplication.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::cli {

/// A mail that is being written, over the whole screen.
class MailSheet : public Sheet {
public:
    MailSheet(shell::SettingsApplication& settings,
              std::shared_ptr<platform::MFMailComposeViewController> composer);

    void draw(Canvas& canvas) override;
    void handle(const Key& key) override;
    std::vector<Hint> hints(const Glyphs& glyphs) const override;

private:
    /// The items that the focus visits; the attachments are between Body and Send.
    enum Item : std::size_t { To, Subject, Body, FirstAttachment };

    std::size_t attachmentCount() const { return composer_->message().attachments.size(); }
    std::size_t send() const { return FirstAttachment + attachmentCount(); }
    std::size_t cancel() const { return send() + 1; }
    bool isAttachment(std::size_t item) const { return item >= FirstAttachment && item < send(); }

    void handleItem(const Key& key);
    void moveFocus(std::ptrdiff_t step);
    void moveInBody(std::ptrdiff_t lines);
    void press(std::size_t item);
    void type(const Key& key);
    void pressMouse(Point point);

    void drawHeader(Canvas& canvas, const Area& area);
    void drawField(Canvas& canvas, Area line, Item item, const std::string& label);
    void drawBody(Canvas& canvas, const Area& area);
    void drawAttachments(Canvas& canvas, Area line);

    shell::SettingsApplication& settings_;
    std::shared_ptr<platform::MFMailComposeViewController> composer_;
    TextEditor to_;
    TextEditor subject_;
    TextEditor body_;
    std::size_t focus_ = Body;
    /// Where each item was drawn, and the first line of the text that was.
    std::vector<Area> areas_;
    std::size_t bodyTop_ = 0;
};

} // namespace wardlock::cli
