#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace wardlock::window {

/// Returns the text in parts of whole lines, which are to be read in one direction each: that of their first
/// letter. Joined by line ends, they are the text.
QStringList partsByDirection(const QString& text);

/// A text and its parts, for QML.
class TextParts : public QObject {
    Q_OBJECT
    Q_PROPERTY(QString text MEMBER text_ NOTIFY textChanged)
    Q_PROPERTY(QStringList parts READ parts NOTIFY textChanged)

public:
    QStringList parts() const { return partsByDirection(text_); }

signals:
    void textChanged();

private:
    QString text_;
};

} // namespace wardlock::window
