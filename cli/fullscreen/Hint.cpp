#include "cli/fullscreen/Hint.h"

#include "cli/io/TextWidth.h"

#include <algorithm>

namespace wardlock::cli {

namespace {

constexpr std::size_t gap = 3;

std::size_t columnsOfHint(const Hint& hint) {
    return columnsOf(hint.key) + 1 + columnsOf(hint.action);
}

std::size_t columnsOfAll(const std::vector<Hint>& hints) {
    std::size_t columns = 0;
    for (const Hint& hint : hints)
        columns += (columns ? gap : 0) + columnsOfHint(hint);
    return columns;
}

} // namespace

void drawHints(Canvas& canvas, const Area& line, std::vector<Hint> hints) {
    while (!hints.empty() && columnsOfAll(hints) > line.columns)
        hints.erase(std::ranges::max_element(hints, {}, &Hint::rank));
    Point point = line.start;
    for (const Hint& hint : hints) {
        canvas.put(point, hint.key, Role::Title);
        canvas.put({point.line, point.column + columnsOf(hint.key) + 1}, hint.action, Role::Faint);
        point.column += columnsOfHint(hint) + gap;
    }
}

} // namespace wardlock::cli
