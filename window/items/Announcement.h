#pragma once

#include <QQuickItem>

namespace wardlock::window {

/// A text that a screen reader says when it appears, wherever the user is. In QML it needs the
/// Accessible.role Notification, and a StaticText inside with the text, which is what is said.
class Announcement : public QQuickItem {
    Q_OBJECT
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY textChanged)

public:
    using QQuickItem::QQuickItem;

    const QString& text() const { return text_; }
    void setText(const QString& text);

signals:
    void textChanged();

private:
    QString text_;
};

} // namespace wardlock::window
