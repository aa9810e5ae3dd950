#include "cli/fullscreen/Sheet.h"

#include <algorithm>

namespace wardlock::cli {

Area centred(const Canvas& canvas, std::size_t lines, std::size_t columns) {
    const std::size_t room = std::max<std::size_t>(canvas.lines(), 2) - 1;
    const std::size_t height = std::min(lines, room);
    const std::size_t width = std::min(columns, canvas.columns());
    return {{(room - height) / 2, (canvas.columns() - width) / 2}, height, width};
}

} // namespace wardlock::cli
