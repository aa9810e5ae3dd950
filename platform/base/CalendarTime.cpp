#include "platform/base/CalendarTime.h"

#include <algorithm>
#include <cstdlib>

namespace platform {

namespace {

void appendNumber(std::string& text, long number, std::size_t width) {
    const std::string digits = std::to_string(number);
    text.append(width - std::min(width, digits.size()), '0');
    text += digits;
}

} // namespace

void appendCalendarTime(std::string& text, std::chrono::sys_seconds time, char between,
                        std::string_view zone) {
    const auto midnight = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(midnight);
    const std::chrono::hh_mm_ss clock(time - midnight);
    const int year(date.year());
    if (year < 0)
        text += '-';
    appendNumber(text, std::abs(year), 4);
    text += '-';
    appendNumber(text, static_cast<long>(unsigned(date.month())), 2);
    text += '-';
    appendNumber(text, static_cast<long>(unsigned(date.day())), 2);
    text += between;
    appendNumber(text, clock.hours().count(), 2);
    text += ':';
    appendNumber(text, clock.minutes().count(), 2);
    text += ':';
    appendNumber(text, clock.seconds().count(), 2);
    text += zone;
}

} // namespace platform
