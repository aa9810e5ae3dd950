#include "window/models/TextParts.h"

namespace wardlock::window {

namespace {

/// Each part is an item of the window.
constexpr qsizetype mostParts = 200;

enum class Direction { None, LeftToRight, RightToLeft };

/// Returns the direction of the first letter; none for a line without one.
Direction directionOf(const QString& line) {
    for (const auto letter : line.toUcs4()) {
        const QChar::Direction direction = QChar::direction(letter);
        if (direction == QChar::DirL)
            return Direction::LeftToRight;
        if (direction == QChar::DirR || direction == QChar::DirAL)
            return Direction::RightToLeft;
    }
    return Direction::None;
}

} // namespace

QStringList partsByDirection(const QString& text) {
    QStringList parts;
    Direction last = Direction::None;
    for (const QString& line : text.split(QLatin1Char('\n'))) {
        const Direction own = directionOf(line);
        const bool continues = own == last || own == Direction::None || last == Direction::None;
        if (!parts.isEmpty() && (continues || parts.size() == mostParts))
            parts.last() += QLatin1Char('\n') + line;
        else
            parts.append(line);
        last = own == Direction::None ? last : own;
    }
    return parts;
}

} // namespace wardlock::window
