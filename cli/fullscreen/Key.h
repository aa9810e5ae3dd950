#pragma once

#include <cstddef>
#include <string>

namespace wardlock::cli {

/// A cell of the terminal, from 0.
struct Point {
    std::size_t line = 0;
    std::size_t column = 0;

    bool operator==(const Point&) const = default;
};

/// Lines and columns of the terminal, or of a part of it.
struct Area {
    Point start;
    std::size_t lines = 0;
    std::size_t columns = 0;

    bool contains(Point point) const {
        return point.line >= start.line && point.line < start.line + lines && point.column >= start.column &&
               point.column < start.column + columns;
    }
};

enum class KeyKind {
    Character,
    /// Ctrl and a letter.
    Control,
    /// Text that came at once from the clipboard.
    Paste,
    Enter,
    Escape,
    Tab,
    BackTab,
    Backspace,
    Delete,
    Up,
    Down,
    Left,
    Right,
    WordLeft,
    WordRight,
    PageUp,
    PageDown,
    Home,
    End,
    MousePress,
    MouseRelease,
    WheelUp,
    WheelDown
};

/// What the user pressed: a key, a button of the mouse, or its wheel.
struct Key {
    KeyKind kind;
    /// Character: which. Control: the small letter.
    char32_t character = 0;
    /// Paste: the text, valid UTF-8. Character: the character.
    std::string text = {};
    /// The mouse: where.
    Point point = {};

    bool is(char32_t letter) const { return kind == KeyKind::Character && character == letter; }
    bool isControl(char32_t letter) const { return kind == KeyKind::Control && character == letter; }
    /// Whether the key adds text.
    bool isText() const { return kind == KeyKind::Character || kind == KeyKind::Paste; }
};

} // namespace wardlock::cli
