#pragma once

#include "cli/fullscreen/Sheet.h"
#include "shell/SettingsApplication.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace wardlock::cli {

/// The four-digit keypad. Digits are shown as dots only.
class KeypadSheet : public Sheet {
public:
    using Keypad = platform::SBUIPasscodeLockViewSimple4DigitKeypad;

    KeypadSheet(shell::SettingsApplication& settings, std::shared_ptr<Keypad> keypad)
        : settings_(settings), keypad_(std::move(keypad)) {}

    void draw(Canvas& canvas) override;
    void handle(const Key& key) override;
    std::vector<Hint> hints(const Glyphs& glyphs) const override;
    bool shows(const Keypad& keypad) const { return keypad_.get() == &keypad; }

private:
    void press(int digit);
    void pressAt(Point point);
    void drawDots(Canvas& canvas, const Area& line);
    void drawDigits(Canvas& canvas, const Area& area);

    shell::SettingsApplication& settings_;
    std::shared_ptr<Keypad> keypad_;
    /// Where each digit was drawn; empty where there was no room.
    std::array<Area, 10> digits_{};
};

} // namespace wardlock::cli
