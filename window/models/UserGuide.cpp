#include "window/models/UserGuide.h"

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

namespace wardlock::window {

namespace {

/// The line between the head of a table and its rows.
bool isRule(const QString& line) {
    return line.startsWith(QLatin1String("|--"));
}

/// Returns the row of a table as an entry of a list: "| a | b | c |" becomes "- **a**: b (c)".
QString asEntry(const QString& row) {
    const QStringList cells = row.split(QLatin1Char('|'));
    QString entry = QStringLiteral("- **%1**: %2").arg(cells.value(1).trimmed(), cells.value(2).trimmed());
    for (qsizetype i = 3; i + 1 < cells.size(); ++i)
        entry += QStringLiteral(" (%1)").arg(cells[i].trimmed());
    return entry;
}

} // namespace

QString userGuideText() {
    QFile file(QStringLiteral(":/guide/user-guide.md"));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    static const QRegularExpression picture(QStringLiteral("!\\[[^\\]]*\\]\\([^)]*\\)"));
    static const QRegularExpression link(QStringLiteral("\\[([^\\]]*)\\]\\([^)]*\\)"));
    // The window draws code in letters of one size, however large the others are.
    static const QRegularExpression code(QStringLiteral("`([^`]*)`"));
    const QString text = QString::fromUtf8(file.readAll())
                             .remove(picture)
                             .replace(link, QStringLiteral("\\1"))
                             .replace(code, QStringLiteral("*\\1*"));
    const QStringList lines = text.split(QLatin1Char('\n'));
    QStringList shown;
    for (qsizetype i = 0; i < lines.size(); ++i)
        if (!isRule(lines[i]) && !isRule(lines.value(i + 1)))
            shown.append(lines[i].startsWith(QLatin1Char('|')) ? asEntry(lines[i]) : lines[i]);
    return shown.join(QLatin1Char('\n'));
}

} // namespace wardlock::window
