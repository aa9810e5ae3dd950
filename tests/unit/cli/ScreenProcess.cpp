#include "tests/unit/cli/ScreenProcess.h"

#include "platform/base/Utf8.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace wardlock::test {

namespace {

std::string colourText(const VTermColor& colour) {
    if (VTERM_COLOR_IS_DEFAULT_FG(&colour) || VTERM_COLOR_IS_DEFAULT_BG(&colour))
        return "default";
    if (VTERM_COLOR_IS_INDEXED(&colour))
        return "index " + std::to_string(colour.indexed.idx);
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", colour.rgb.red, colour.rgb.green, colour.rgb.blue);
    return text;
}

} // namespace

ScreenProcess::ScreenProcess(const std::string& program, const std::vector<std::string>& arguments, Size size)
    : size_(size), terminal_(vterm_new(size.lines, size.columns)),
      screen_(vterm_obtain_screen(terminal_.get())), process_(program, arguments, size) {
    static const VTermScreenCallbacks callbacks = [] {
        VTermScreenCallbacks ours{};
        ours.movecursor = &ScreenProcess::moved;
        ours.settermprop = &ScreenProcess::property;
        return ours;
    }();
    vterm_set_utf8(terminal_.get(), 1);
    vterm_output_set_callback(terminal_.get(), &ScreenProcess::reply, this);
    vterm_screen_set_callbacks(screen_, &callbacks, this);
    vterm_screen_enable_altscreen(screen_, 1);
    vterm_screen_reset(screen_, 1);
}

void ScreenProcess::reply(const char* bytes, std::size_t count, void* self) {
    auto& process = *static_cast<ScreenProcess*>(self);
    if (!process.silent_)
        process.type({bytes, count});
}

int ScreenProcess::property(VTermProp property, VTermValue* value, void* self) {
    auto& process = *static_cast<ScreenProcess*>(self);
    if (property == VTERM_PROP_ALTSCREEN)
        process.secondScreen_ = value->boolean != 0;
    else if (property == VTERM_PROP_CURSORVISIBLE)
        process.caretShown_ = value->boolean != 0;
    return 1;
}

/// The emulator reads only the first of several modes in one sequence.
bool ScreenProcess::reportsMouse() const {
    const std::size_t on = output_.rfind("1000h");
    const std::size_t off = output_.rfind("1000l");
    return on != std::string::npos && (off == std::string::npos || off < on);
}

int ScreenProcess::moved(VTermPos now, VTermPos, int, void* self) {
    static_cast<ScreenProcess*>(self)->caret_ = now;
    return 1;
}

void ScreenProcess::feed(const std::string& bytes) {
    output_ += bytes;
    vterm_input_write(terminal_.get(), bytes.data(), bytes.size());
}

bool ScreenProcess::waitUntil(const std::function<bool()>& condition, const std::string& wanted) {
    while (!condition()) {
        const std::string more = process_.takeMore();
        if (more.empty()) {
            ADD_FAILURE() << "the screen never showed " << wanted << ", but:\n" << screen();
            return false;
        }
        feed(more);
    }
    return true;
}

std::string ScreenProcess::waitFor(const std::string& text) {
    waitUntil([&] { return lineWith(text) >= 0; }, '"' + text + '"');
    return line(lineWith(text));
}

void ScreenProcess::waitUntilGone(const std::string& text) {
    waitUntil([&] { return lineWith(text) < 0; }, "the end of \"" + text + '"');
}

void ScreenProcess::waitForMore() {
    const std::size_t before = output_.size();
    waitUntil([&] { return output_.size() > before; }, "anything more");
}

void ScreenProcess::waitForLine(int number, const std::string& text) {
    waitUntil([&] { return line(number) == text; },
              "in line " + std::to_string(number) + ":\n" + text + '\n');
}

void ScreenProcess::waitForBackground(const std::string& text, const std::string& colour) {
    waitUntil([&] { return lineWith(text) >= 0 && cellAt(text).background == colour; },
              '"' + text + "\" on " + colour);
}

void ScreenProcess::waitForCaret(int line, int column) {
    waitUntil([&] { return caretShown_ && caret_.row == line && caret_.col == column; },
              "a caret in line " + std::to_string(line) + ", column " + std::to_string(column));
}

void ScreenProcess::waitForNoCaret() {
    waitUntil([&] { return !caretShown_; }, "no caret");
}

void ScreenProcess::click(int line, int column) {
    const std::string place = std::to_string(column + 1) + ';' + std::to_string(line + 1);
    type("\x1B[<0;" + place + "M\x1B[<0;" + place + "m");
}

void ScreenProcess::wheel(bool up) {
    type(up ? "\x1B[<64;10;10M" : "\x1B[<65;10;10M");
}

void ScreenProcess::resize(Size size) {
    size_ = size;
    vterm_set_size(terminal_.get(), size.lines, size.columns);
    process_.resize(size);
}

int ScreenProcess::wait() {
    keepSilent();
    const int code = process_.wait();
    feed(process_.output());
    return code;
}

std::string ScreenProcess::line(int number) const {
    std::string text;
    for (int column = 0; column < size_.columns; ++column) {
        VTermScreenCell cell{};
        vterm_screen_get_cell(screen_, {number, column}, &cell);
        if (cell.chars[0] == 0)
            text += ' ';
        // The second cell of a wide character has -1.
        else if (cell.chars[0] != static_cast<std::uint32_t>(-1))
            for (int mark = 0; mark < VTERM_MAX_CHARS_PER_CELL && cell.chars[mark]; ++mark)
                platform::appendUtf8(cell.chars[mark], text);
    }
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::string ScreenProcess::screen() const {
    std::string text;
    for (int number = 0; number < size_.lines; ++number)
        text += line(number) + '\n';
    return text;
}

int ScreenProcess::lineWith(const std::string& text) const {
    for (int number = 0; number < size_.lines; ++number)
        if (line(number).find(text) != std::string::npos)
            return number;
    return -1;
}

ScreenProcess::Cell ScreenProcess::cell(int line, int column) const {
    VTermScreenCell cell{};
    vterm_screen_get_cell(screen_, {line, column}, &cell);
    std::string text;
    platform::appendUtf8(cell.chars[0] ? cell.chars[0] : U' ', text);
    return {text,
            cell.attrs.bold != 0,
            cell.attrs.reverse != 0,
            cell.attrs.underline != 0,
            colourText(cell.fg),
            colourText(cell.bg)};
}

ScreenProcess::Cell ScreenProcess::cellAt(const std::string& text) const {
    const int number = lineWith(text);
    EXPECT_GE(number, 0) << text << '\n' << screen();
    const std::string before = line(number).substr(0, line(number).find(text));
    int column = 0;
    for (std::size_t position = 0; position < before.size(); ++column)
        position += std::max<std::size_t>(platform::decodeUtf8(before, position).length, 1);
    return cell(std::max(number, 0), column);
}

} // namespace wardlock::test
