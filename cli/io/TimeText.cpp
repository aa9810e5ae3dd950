#include "cli/io/TimeText.h"

#include <ctime>

namespace wardlock::cli {

namespace {

using std::chrono::floor;
using std::chrono::seconds;

std::string formatted(Time time, std::tm* (*convert)(const std::time_t*, std::tm*), const char* format) {
    const std::time_t whole = std::chrono::system_clock::to_time_t(floor<seconds>(time));
    std::tm parts{};
    convert(&whole, &parts);
    char text[64];
    return {text, std::strftime(text, sizeof text, format, &parts)};
}

} // namespace

std::string localTime(Time time) {
    return formatted(time, ::localtime_r, "%Y-%m-%d %H:%M:%S");
}

std::string universalTime(Time time) {
    return formatted(time, ::gmtime_r, "%Y-%m-%dT%H:%M:%SZ");
}

std::string universalTimeWithMilliseconds(Time time) {
    constexpr int second = 1000;
    const auto fraction = (time - floor<seconds>(time)).count();
    return formatted(time, ::gmtime_r, "%Y-%m-%dT%H:%M:%S.") + std::to_string(second + fraction).substr(1) +
           'Z';
}

} // namespace wardlock::cli
