#include "platform/plist/CalendarDate.h"

#include "platform/base/CalendarTime.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>

namespace platform {

namespace {

using namespace std::chrono;

using Seconds = sys_seconds;

/// Takes `fewest` to `most` digits and then the character `after`; returns nothing for any other text.
std::optional<int> takeNumber(std::string_view& text, std::size_t fewest, std::size_t most, char after) {
    const std::size_t length = std::min(text.find_first_not_of("0123456789"), text.size());
    if (length < fewest || length > most || length == text.size() || text[length] != after)
        return std::nullopt;
    int number = 0;
    std::from_chars(text.data(), text.data() + length, number);
    text.remove_prefix(length + 1);
    return number;
}

} // namespace

std::optional<double> secondsFromDateText(std::string_view text) {
    const bool beforeZero = text.starts_with('-');
    text.remove_prefix(beforeZero ? 1 : 0);
    const auto years = takeNumber(text, 4, 5, '-');
    const auto months = takeNumber(text, 2, 2, '-');
    const auto daysOfMonth = takeNumber(text, 2, 2, 'T');
    const auto hour = takeNumber(text, 2, 2, ':');
    const auto minute = takeNumber(text, 2, 2, ':');
    const auto second = takeNumber(text, 2, 2, 'Z');
    if (!years || !months || !daysOfMonth || !hour || !minute || !second || !text.empty())
        return std::nullopt;
    if (*years > int(year::max()) || *hour > 23 || *minute > 59 || *second > 59)
        return std::nullopt;
    const year_month_day date = year(beforeZero ? -*years : *years) / *months / *daysOfMonth;
    if (!date.ok())
        return std::nullopt;
    const Seconds time = sys_days(date) + hours(*hour) + minutes(*minute) + seconds(*second);
    return static_cast<double>((time - dateReference).count());
}

void appendDateText(std::string& text, double secondsSince2001) {
    const double earliest = static_cast<double>((firstCalendarSecond - dateReference).count());
    const double latest = static_cast<double>((lastCalendarSecond - dateReference).count());
    const double whole =
        std::isnan(secondsSince2001) ? 0 : std::floor(std::clamp(secondsSince2001, earliest, latest));
    const Seconds time = dateReference + seconds(static_cast<std::int64_t>(whole));
    appendCalendarTime(text, time, 'T', "Z");
}

} // namespace platform
