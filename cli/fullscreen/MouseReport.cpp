#include "cli/fullscreen/MouseReport.h"

#include <array>
#include <charconv>

namespace wardlock::cli {

namespace {

/// The numbers of buttons, without those of modifier keys.
enum Button : unsigned { LeftButton = 0, Released = 3, WheelUpButton = 64, WheelDownButton = 65 };
constexpr unsigned modifiers = 4 | 8 | 16;

std::optional<Key> key(unsigned button, bool released, Point point) {
    switch (button & ~modifiers) {
    case LeftButton:
        return Key{.kind = released ? KeyKind::MouseRelease : KeyKind::MousePress, .point = point};
    case Released:
        return Key{.kind = KeyKind::MouseRelease, .point = point};
    case WheelUpButton:
        return Key{.kind = KeyKind::WheelUp, .point = point};
    case WheelDownButton:
        return Key{.kind = KeyKind::WheelDown, .point = point};
    default:
        return std::nullopt;
    }
}

/// "<BUTTON;COLUMN;LINE" and M for a press, m for a release.
std::optional<Key> keyOfNumbers(std::string_view report) {
    std::array<unsigned, 3> numbers{};
    const char* position = report.data();
    const char* const last = report.data() + report.size() - 1;
    for (unsigned& number : numbers) {
        const auto [end, error] = std::from_chars(position + 1, last, number);
        if (error != std::errc())
            return std::nullopt;
        position = end;
    }
    const auto [button, column, line] = numbers;
    if (position != last || column == 0 || line == 0)
        return std::nullopt;
    return key(button, *last == 'm', {line - 1, column - 1});
}

/// Each byte is 32 more than its number; the first cell is 1.
std::optional<Key> keyOfBytes(std::string_view bytes) {
    std::array<unsigned, 3> numbers{};
    for (std::size_t index = 0; index < numbers.size(); ++index)
        numbers[index] = static_cast<unsigned char>(bytes[index + 1]);
    const auto [button, column, line] = numbers;
    if (button < 32 || column < 33 || line < 33)
        return std::nullopt;
    return key(button - 32, false, {line - 33, column - 33});
}

} // namespace

std::optional<Key> mouseKey(std::string_view report) {
    if (report.starts_with('M') && report.size() == 4)
        return keyOfBytes(report);
    if (report.starts_with('<') && (report.ends_with('M') || report.ends_with('m')))
        return keyOfNumbers(report);
    return std::nullopt;
}

} // namespace wardlock::cli
