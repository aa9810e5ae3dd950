#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace wardlock::window {

/// A text of the platform, which is UTF-8, as Qt has it.
inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// More than anybody reads in one line, or on one page: to lay out megabytes takes minutes.
constexpr qsizetype longestLine = 4000;
constexpr qsizetype longestPage = 100'000;

/// A text to be looked at: too long a one is its beginning and "…". What is stored is never made of it.
QString shownText(std::string_view text, qsizetype longest = longestLine);
/// A name to be looked at, in one line: each line end in it is a blank.
QString shownName(std::string_view name);
/// Whether it is only the beginning that is shown.
bool isCut(std::string_view text, qsizetype longest = longestLine);

} // namespace wardlock::window
