#include "cli/command/HistoryText.h"

#include <ctime>

namespace wardlock::cli {

namespace {

constexpr std::int64_t millisecondsOfASecond = 1000;

std::string formatted(const char* format, const std::tm& parts) {
    char text[64];
    return {text, std::strftime(text, sizeof text, format, &parts)};
}

} // namespace

std::string_view originText(const platform::VersionOrigin& origin) {
    if (origin.place == SettingsPlace)
        return "Settings";
    return origin.place == CommandPlace ? "command" : "another program";
}

std::string_view actionWord(platform::VersionAction action) {
    switch (action) {
    case platform::VersionAction::Undo:
        return "undo";
    case platform::VersionAction::Redo:
        return "redo";
    case platform::VersionAction::Restore:
        return "restore";
    case platform::VersionAction::Change:
        break;
    }
    return "change";
}

std::string localTime(std::int64_t milliseconds) {
    const auto seconds = static_cast<std::time_t>(milliseconds / millisecondsOfASecond);
    std::tm parts = {};
    ::localtime_r(&seconds, &parts);
    return formatted("%Y-%m-%d %H:%M:%S", parts);
}

std::string universalTime(std::int64_t milliseconds) {
    const auto seconds = static_cast<std::time_t>(milliseconds / millisecondsOfASecond);
    std::tm parts = {};
    ::gmtime_r(&seconds, &parts);
    const std::string fraction = std::to_string(millisecondsOfASecond + milliseconds % millisecondsOfASecond);
    return formatted("%Y-%m-%dT%H:%M:%S.", parts) + fraction.substr(1) + 'Z';
}

} // namespace wardlock::cli
