#pragma once

#include "cli/fullscreen/Canvas.h"
#include "cli/fullscreen/Hint.h"
#include "cli/fullscreen/Key.h"
#include "cli/fullscreen/PagePainter.h"
#include "cli/fullscreen/TextEditor.h"
#include "shell/SettingsApplication.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace wardlock::cli {

/// The page on the screen, and what keys and the mouse do to it.
class PageView {
public:
    PageView(shell::SettingsApplication& settings, Canvas& canvas) : settings_(settings), canvas_(canvas) {}

    void draw();
    /// Returns false for a key that means nothing on a page.
    bool handle(const Key& key);

    /// Who changed the page.
    enum class Change { Own, Foreign };
    /// To be called when the page shows other rows, or texts. The cursor follows its row, and goes to a row
    /// that the user has added.
    void forgetLines(Change change);
    /// Moves the cursor to the row.
    void showRow(platform::NSIndexPath path);
    /// Whether keys are text of a field now.
    bool isTyping() const { return editor_ || find_; }
    bool isFinding() const { return find_ && !editor_; }
    std::vector<Hint> hints();
    /// Why the last key had no effect; empty when it had. It is shown until the next key.
    const std::string& message() const { return message_; }
    void report(const shell::InputResult& result);

private:
    using Position = std::pair<std::weak_ptr<shell::Page>, ListCursor>;
    /// Where the mouse was pressed: the cell, and the line of the page there.
    struct Press {
        Point point;
        std::optional<std::size_t> line;
    };

    void update();
    void readLines();
    std::optional<std::size_t> addedRow(const PageLines& before) const;
    void followPage();
    void followEdit();
    void followCursorRow();
    void rememberCursorRow();

    bool handleWhileEditing(const Key& key);
    bool handleWhileFinding(const Key& key);
    bool handleMove(const Key& key);
    bool handleCommand(const Key& key);
    bool handleMouse(const Key& key);
    bool handleSideways(const Key& key);
    bool handleLink(const Key& key);

    void tap();
    void press(Point point);
    void release(Point point);
    void tapTitle(std::size_t column);
    void tapLine(std::size_t index, std::size_t column);
    void back();
    void beginFinding(const std::string& text);
    void endFinding();
    void chooseLink(bool forward);
    void followLinkAt(const std::string& text, std::size_t column);
    bool moveSlider(int steps);
    void wheel(std::ptrdiff_t lines);

    std::optional<shell::Row> cursorRow();
    std::optional<std::size_t> lineAt(Point point) const;
    std::size_t linkCount() const;
    void drawFind(const Area& line);

    shell::SettingsApplication& settings_;
    Canvas& canvas_;
    PageState state_;
    std::shared_ptr<shell::Page> page_;
    /// Where the cursor was on the pages below.
    std::vector<Position> positions_;
    std::optional<TextEditor> editor_;
    std::optional<TextEditor> find_;
    std::string message_;
    /// The name of the row with the cursor: other rows may come before it.
    std::string cursorLabel_;
    std::size_t columns_ = 0;
    bool linesStand_ = false;
    bool mayHaveAddedRow_ = false;
    std::optional<Press> pressed_;
};

} // namespace wardlock::cli
