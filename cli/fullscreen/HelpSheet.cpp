#include "cli/fullscreen/HelpSheet.h"

#include "cli/io/TextWidth.h"

#include <algorithm>
#include <array>

namespace wardlock::cli {

namespace {

struct Entry {
    const char* keys;
    const char* action;
};

constexpr std::array entries{
    Entry{"Up Down, k j", "move"},
    Entry{"PgUp PgDn", "move by a screen"},
    Entry{"Home End, g G", "go to the first or last row"},
    Entry{"Space, Enter", "tap the row"},
    Entry{"Left Right", "move a slider"},
    Entry{"Esc, Left, h", "go back"},
    Entry{"/, other letters", "find a row"},
    Entry{"+", "press the button at the top right"},
    Entry{"Tab", "select a link of a web page"},
    Entry{"u", "take the last change back"},
    Entry{"Ctrl+R", "make it again"},
    Entry{"Ctrl+Z", "suspend; the shell's fg returns"},
    Entry{"Ctrl+L", "redraw the screen"},
    Entry{"q, Ctrl+C", "quit"},
    Entry{"", ""},
    Entry{"", "In a text field"},
    Entry{"Enter, Esc, Tab", "store what was typed"},
    Entry{"Ctrl+U, Ctrl+W", "delete to the start, or a word"},
    Entry{"", ""},
    Entry{"", "A click taps, the wheel scrolls."},
    Entry{"", "With Shift, the mouse selects text."},
};

constexpr std::size_t keyColumns = 18;
constexpr std::size_t boxColumns = 58;

} // namespace

void HelpSheet::draw(Canvas& canvas) {
    const Area box = centred(canvas, entries.size() + 4, boxColumns);
    height_ = box.lines - std::min<std::size_t>(box.lines, 4);
    lastTop_ = entries.size() - std::min(entries.size(), height_);
    top_ = std::min(top_, lastTop_);
    canvas.frame(box, Role::Faint);
    const std::size_t inner = box.columns - std::min<std::size_t>(box.columns, 4);
    const std::size_t keys = std::min(keyColumns, inner / 2);
    canvas.putCentred({{box.start.line + 1, box.start.column + 1}, 1, inner + 2}, "Keys", Role::Title);
    for (std::size_t shown = 0; shown < height_ && top_ + shown < entries.size(); ++shown) {
        const Entry& entry = entries[top_ + shown];
        const Point start{box.start.line + 3 + shown, box.start.column + 2};
        const bool alone = *entry.keys == 0;
        canvas.put(start, truncated(entry.keys, keys), Role::Link);
        canvas.put({start.line, start.column + (alone ? 0 : keys)},
                   truncated(entry.action, inner - (alone ? 0 : keys)), alone ? Role::Faint : Role::Text);
    }
}

void HelpSheet::handle(const Key& key) {
    const std::size_t page = std::max<std::size_t>(height_, 2) - 1;
    if (key.kind == KeyKind::Down || key.is('j') || key.kind == KeyKind::WheelDown)
        top_ = std::min(top_ + 1, lastTop_);
    else if (key.kind == KeyKind::Up || key.is('k') || key.kind == KeyKind::WheelUp)
        top_ -= std::min<std::size_t>(top_, 1);
    else if (key.kind == KeyKind::PageDown)
        top_ = std::min(top_ + page, lastTop_);
    else if (key.kind == KeyKind::PageUp)
        top_ -= std::min(top_, page);
    else if (key.kind != KeyKind::MouseRelease)
        closed_ = true;
}

std::vector<Hint> HelpSheet::hints(const Glyphs& glyphs) const {
    if (lastTop_ == 0)
        return {{"Esc", "close"}};
    return {{std::string(glyphs.upDown), "scroll"}, {"Esc", "close"}};
}

} // namespace wardlock::cli
