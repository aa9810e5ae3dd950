#pragma once

#include "cli/fullscreen/Sheet.h"
#include "cli/fullscreen/TextEditor.h"
#include "shell/SettingsApplication.h"

#include <memory>
#include <string>
#include <vector>

namespace wardlock::cli {

/// An alert: its texts, its fields and its buttons.
class AlertSheet : public Sheet {
public:
    AlertSheet(shell::SettingsApplication& settings, std::shared_ptr<platform::UIAlertController> alert);

    void draw(Canvas& canvas) override;
    void handle(const Key& key) override;
    std::vector<Hint> hints(const Glyphs& glyphs) const override;

private:
    std::size_t fieldCount() const { return editors_.size(); }
    std::size_t itemCount() const { return fieldCount() + alert_->actions().size(); }
    /// Returns the button that Enter presses in the last field, or that is chosen first.
    std::size_t preferredItem() const;
    void moveFocus(std::ptrdiff_t step);
    void press(std::size_t item);
    void type(const Key& key);
    void cancel();
    void followFields();
    void drawFields(Canvas& canvas, Area& rest);
    void drawButtons(Canvas& canvas, const Area& rest);
    void drawButton(Canvas& canvas, std::size_t action, const Area& area);
    bool buttonsFitInOneLine(std::size_t columns) const;
    std::size_t buttonLines(std::size_t columns) const;

    shell::SettingsApplication& settings_;
    std::shared_ptr<platform::UIAlertController> alert_;
    std::vector<TextEditor> editors_;
    /// The fields, then the buttons.
    std::size_t focus_ = 0;
    /// Where each of them was drawn.
    std::vector<Area> areas_;
};

} // namespace wardlock::cli
