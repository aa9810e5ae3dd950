#include "window/models/Text.h"

namespace wardlock::window {

namespace {

/// Returns at least a few letters more than are shown, where there are more: a letter has four bytes at most.
QString beginning(std::string_view text, qsizetype longest) {
    return toQt(text.substr(0, 4 * static_cast<std::size_t>(longest + 1)));
}

} // namespace

QString shownText(std::string_view text, qsizetype longest) {
    QString all = beginning(text, longest);
    if (all.size() <= longest)
        return all;
    // Does not cut a surrogate pair in two.
    all.truncate(all.at(longest).isLowSurrogate() ? longest - 1 : longest);
    return all + QChar(0x2026);
}

QString shownName(std::string_view name) {
    QString shown = shownText(name);
    shown.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (QChar& letter : shown)
        if ((letter >= QChar('\n') && letter <= QChar('\r')) || letter == QChar(0x85) ||
            letter == QChar::LineSeparator || letter == QChar::ParagraphSeparator)
            letter = QChar(' ');
    return shown;
}

bool isCut(std::string_view text, qsizetype longest) {
    return beginning(text, longest).size() > longest;
}

} // namespace wardlock::window
