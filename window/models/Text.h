#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace wardlock::window {

/// Returns a text of the platform, which is UTF-8, as Qt's type.
inline QString toQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// More than is read in one line, or on one page: laying out megabytes takes minutes.
constexpr qsizetype longestLine = 4000;
constexpr qsizetype longestPage = 100'000;

/// Returns a text for display: of a longer one its beginning and "…". What is stored is never made from it.
QString shownText(std::string_view text, qsizetype longest = longestLine);
/// Returns a name for display, in one line: each line end in it is a blank.
QString shownName(std::string_view name);
/// Returns whether only the beginning is shown.
bool isCut(std::string_view text, qsizetype longest = longestLine);

} // namespace wardlock::window
