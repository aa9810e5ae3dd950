#include "cli/fullscreen/CursesKeys.h"

#include "platform/base/Utf8.h"

#include <array>
#include <iterator>
#include <utility>
// Last: it defines macros.
#define NCURSES_NOMACROS 1
#include <curses.h>

namespace wardlock::cli {

namespace {

constexpr int escapeMilliseconds = 50;
constexpr std::size_t longestPaste = std::size_t(1024) * 1024;
constexpr int escapeByte = 27;

/// Codes of our own, beyond those of the library.
enum OwnCode { PasteBegin = KEY_MAX + 1, PasteEnd, CtrlLeft, CtrlRight };

struct Sequence {
    const char* bytes;
    int code;
};

/// What terminals send that their descriptions leave out, or only some of them name.
constexpr std::array sequences{
    Sequence{"\033[200~", PasteBegin}, Sequence{"\033[201~", PasteEnd}, Sequence{"\033[1;5D", CtrlLeft},
    Sequence{"\033[1;5C", CtrlRight},  Sequence{"\033[1;3D", CtrlLeft}, Sequence{"\033[1;3C", CtrlRight},
    Sequence{"\033[A", KEY_UP},        Sequence{"\033[B", KEY_DOWN},    Sequence{"\033[C", KEY_RIGHT},
    Sequence{"\033[D", KEY_LEFT},      Sequence{"\033[H", KEY_HOME},    Sequence{"\033[F", KEY_END},
    Sequence{"\033[1~", KEY_HOME},     Sequence{"\033[4~", KEY_END},    Sequence{"\033[Z", KEY_BTAB},
};

struct Named {
    int code;
    KeyKind kind;
};

constexpr std::array named{
    Named{KEY_UP, KeyKind::Up},
    Named{KEY_DOWN, KeyKind::Down},
    Named{KEY_LEFT, KeyKind::Left},
    Named{KEY_RIGHT, KeyKind::Right},
    Named{KEY_PPAGE, KeyKind::PageUp},
    Named{KEY_NPAGE, KeyKind::PageDown},
    Named{KEY_HOME, KeyKind::Home},
    Named{KEY_END, KeyKind::End},
    Named{KEY_BACKSPACE, KeyKind::Backspace},
    Named{KEY_DC, KeyKind::Delete},
    Named{KEY_BTAB, KeyKind::BackTab},
    Named{KEY_ENTER, KeyKind::Enter},
    Named{CtrlLeft, KeyKind::WordLeft},
    Named{CtrlRight, KeyKind::WordRight},
    Named{'\r', KeyKind::Enter},
    Named{'\n', KeyKind::Enter},
    Named{'\t', KeyKind::Tab},
    Named{'\b', KeyKind::Backspace},
    Named{127, KeyKind::Backspace},
};

/// The library makes one event of a press and a release that come at once, and of several of them.
constexpr mmask_t clicks[]{BUTTON1_CLICKED, BUTTON1_DOUBLE_CLICKED, BUTTON1_TRIPLE_CLICKED};
constexpr mmask_t allClicks = clicks[0] | clicks[1] | clicks[2];

/// Returns how many bytes a character of UTF-8 takes that begins so; 1 where none does.
std::size_t lengthAfter(unsigned char lead) {
    return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
}

/// Takes the rest of a sequence that the library does not know: up to its final byte.
void skipSequence() {
    for (int code = getch(); code != ERR && (code < 0x40 || code > 0x7E); code = getch()) {
    }
}

} // namespace

void setKeys() {
    set_escdelay(escapeMilliseconds);
    keypad(stdscr, true);
    nodelay(stdscr, true);
    meta(stdscr, true);
    for (const auto& sequence : sequences)
        if (!key_defined(sequence.bytes) || sequence.code > KEY_MAX)
            define_key(sequence.bytes, sequence.code);
    mouseinterval(0);
    mousemask(BUTTON1_PRESSED | BUTTON1_RELEASED | allClicks | BUTTON4_PRESSED | BUTTON5_PRESSED, nullptr);
}

std::optional<Key> KeyReader::next() {
    if (!mouse_.empty()) {
        Key key = std::move(mouse_.front());
        mouse_.pop_front();
        return key;
    }
    for (int code = getch(); code != ERR; code = getch())
        if (auto key = keyOf(code))
            return key;
    return std::nullopt;
}

std::optional<Key> KeyReader::keyOf(int code) {
    if (code == PasteBegin) {
        pasting_ = true;
        return std::nullopt;
    }
    if (code == PasteEnd)
        return std::exchange(pasting_, false)
                   ? std::optional(Key{.kind = KeyKind::Paste, .text = std::exchange(pasted_, {})})
                   : std::nullopt;
    if (pasting_) {
        takePasted(code);
        return std::nullopt;
    }
    if (code == KEY_MOUSE) {
        takeMouse();
        return next();
    }
    for (const Named& known : named)
        if (known.code == code)
            return Key{.kind = known.kind};
    if (code == escapeByte)
        return afterEscape();
    return code >= 0 && code < 256 ? keyOfByte(code) : std::nullopt;
}

void KeyReader::takeMouse() {
    MEVENT event{};
    if (getmouse(&event) == ERR || event.x < 0 || event.y < 0)
        return;
    const Point point{static_cast<std::size_t>(event.y), static_cast<std::size_t>(event.x)};
    const auto add = [&](KeyKind kind) { mouse_.push_back({.kind = kind, .point = point}); };
    if (event.bstate & BUTTON4_PRESSED)
        add(KeyKind::WheelUp);
    if (event.bstate & BUTTON5_PRESSED)
        add(KeyKind::WheelDown);
    if (event.bstate & BUTTON1_PRESSED)
        add(KeyKind::MousePress);
    if (event.bstate & BUTTON1_RELEASED)
        add(KeyKind::MouseRelease);
    for (std::size_t count = 1; count <= std::size(clicks); ++count)
        for (std::size_t click = 0; (event.bstate & clicks[count - 1]) && click < count; ++click) {
            add(KeyKind::MousePress);
            add(KeyKind::MouseRelease);
        }
}

void KeyReader::takePasted(int code) {
    if (auto key = code == '\r' ? Key{.kind = KeyKind::Character, .text = "\n"}
                   : code == '\n' || code == '\t'
                       ? Key{.kind = KeyKind::Character, .text = std::string(1, static_cast<char>(code))}
                       : keyOfByte(code).value_or(Key{.kind = KeyKind::Escape});
        key.kind == KeyKind::Character && pasted_.size() < longestPaste)
        pasted_ += key.text;
}

std::optional<Key> KeyReader::keyOfByte(int byte) {
    if (byte > 255)
        return std::nullopt;
    if (byte < 32)
        return byte >= 1 && byte <= 26
                   ? std::optional(
                         Key{.kind = KeyKind::Control, .character = static_cast<char32_t>('a' + byte - 1)})
                   : std::nullopt;
    bytes_ += static_cast<char>(byte);
    while (!bytes_.empty() && bytes_.size() >= lengthAfter(static_cast<unsigned char>(bytes_[0]))) {
        const auto decoded = platform::decodeUtf8(bytes_, 0);
        if (decoded.length > 0)
            return Key{.kind = KeyKind::Character,
                       .character = decoded.character,
                       .text = std::exchange(bytes_, {})};
        bytes_.erase(0, 1);
    }
    return std::nullopt;
}

/// Escape alone, or the beginning of a sequence that the library does not know. Alt and a letter come as
/// Escape and the letter; they mean nothing here.
std::optional<Key> KeyReader::afterEscape() {
    const int code = getch();
    if (code == ERR || code == escapeByte)
        return Key{.kind = KeyKind::Escape};
    if (code == '[')
        skipSequence();
    else if (code == 'O')
        getch();
    return std::nullopt;
}

} // namespace wardlock::cli
