#include "cli/fullscreen/CursesKeys.h"

#include "cli/fullscreen/GroundReply.h"
#include "cli/fullscreen/MouseReport.h"
#include "platform/base/Utf8.h"

#include <array>
#include <poll.h>
#include <unistd.h>
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

/// Returns how many bytes a character of UTF-8 takes that begins so; 1 where none does.
std::size_t lengthAfter(unsigned char lead) {
    return lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
}

/// Returns the next byte of a sequence, which comes at once or soon.
int nextOfSequence() {
    timeout(escapeMilliseconds);
    const int code = getch();
    nodelay(stdscr, true);
    return code;
}

/// Returns the rest of a sequence that the library does not know, up to its final byte.
std::string restOfSequence() {
    constexpr std::size_t longest = 64;
    constexpr std::size_t mouseBytes = 4;
    std::string rest;
    while (rest.size() < longest) {
        const int code = nextOfSequence();
        if (code < 0 || code > 255)
            break;
        rest += static_cast<char>(code);
        const bool ends = code >= 0x40 && code <= 0x7E;
        if (rest[0] == 'M' ? rest.size() == mouseBytes : ends)
            break;
    }
    return rest;
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
    mousemask(BUTTON1_PRESSED | BUTTON1_RELEASED | BUTTON4_PRESSED | BUTTON5_PRESSED, nullptr);
    // The library would join clicks that come together, wherever they are: its mouse is only switched on.
    define_key(nullptr, KEY_MOUSE);
}

std::optional<Key> KeyReader::next() {
    for (int code = getch(); code != ERR; code = getch())
        if (auto key = keyOf(code))
            return key;
    return std::nullopt;
}

std::vector<Key> KeyReader::awaitReplies(std::chrono::milliseconds longest) {
    using Clock = std::chrono::steady_clock;
    awaitsReply_ = true;
    std::vector<Key> keys;
    const auto end = Clock::now() + longest;
    while (awaitsReply_) {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        pollfd input{STDIN_FILENO, POLLIN, 0};
        if (left.count() <= 0 || poll(&input, 1, static_cast<int>(left.count())) <= 0 ||
            (input.revents & POLLIN) == 0)
            break;
        while (auto key = next())
            keys.push_back(std::move(*key));
    }
    return keys;
}

std::optional<Key> KeyReader::takeReply(int code) {
    for (; code >= 0 && code < 256; code = nextOfSequence()) {
        reply_ += static_cast<char>(code);
        const Reply reply = replyOf(reply_);
        if (reply == Reply::Begun)
            continue;
        if (reply == Reply::None)
            return keyOfNoReply();
        if (const Ground ground = groundOfReply(reply_);
            reply == Reply::Background && ground != Ground::Unknown)
            ground_ = ground;
        if (reply == Reply::Kind)
            awaitsReply_ = false;
        else
            isKindDue_ = true;
        const bool isNextBegun = reply == Reply::Broken && reply_[reply_.size() - 2] == escapeByte;
        reply_.clear();
        escaped_ = false;
        // The byte that broke a reply is not a part of it.
        if (reply == Reply::Broken)
            ungetch(code);
        return isNextBegun ? takeReply(escapeByte) : std::nullopt;
    }
    if (code != ERR) {
        ungetch(code);
        return keyOfNoReply();
    }
    // The rest comes later. It may never come of Escape alone, which is a key.
    if (reply_.size() > 1 || isKindDue_ || std::exchange(escaped_, true))
        return std::nullopt;
    return Key{.kind = KeyKind::Escape};
}

/// The bytes are read again, as those of keys.
std::optional<Key> KeyReader::keyOfNoReply() {
    while (reply_.size() > 1) {
        ungetch(static_cast<unsigned char>(reply_.back()));
        reply_.pop_back();
    }
    reply_.clear();
    return std::exchange(escaped_, false) ? std::nullopt : afterEscape();
}

std::optional<Key> KeyReader::keyOf(int code) {
    if (awaitsReply_ && !pasting_ && (code == escapeByte || !reply_.empty()))
        return takeReply(code);
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
    for (const Named& known : named)
        if (known.code == code)
            return Key{.kind = known.kind};
    if (code == escapeByte)
        return afterEscape();
    return code >= 0 && code < 256 ? keyOfByte(code) : std::nullopt;
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

/// Escape alone, or the beginning of a sequence that the library does not know. A slow connection may bring
/// Escape and the next key at once.
std::optional<Key> KeyReader::afterEscape() {
    const int code = getch();
    if (code == '[')
        return mouseKey(restOfSequence());
    if (code == 'O') {
        getch();
        return std::nullopt;
    }
    if (code != ERR)
        ungetch(code);
    return Key{.kind = KeyKind::Escape};
}

} // namespace wardlock::cli
