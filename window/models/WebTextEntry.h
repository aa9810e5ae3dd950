#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>

namespace wardlock::window {

/// A block of a web page's text as QML shows it.
struct WebTextEntry {
    Q_GADGET
    /// "text", "heading", "item", "code", or "link" for a block that is one link.
    Q_PROPERTY(QString kind MEMBER kind)
    /// Of a heading, from 1.
    Q_PROPERTY(int rank MEMBER rank)
    /// The number of lists that the block is inside.
    Q_PROPERTY(int lists MEMBER lists)
    /// Whether there is a space above.
    Q_PROPERTY(bool apart MEMBER apart)
    /// Whether a link is the first, or the last, of neighbouring ones.
    Q_PROPERTY(bool first MEMBER first)
    Q_PROPERTY(bool last MEMBER last)
    /// The whole text.
    Q_PROPERTY(QString words MEMBER words)
    /// Its parts, each with "text" and "link": the number of its link, or 0.
    Q_PROPERTY(QVariantList runs MEMBER runs)

public:
    QString kind;
    int rank = 0;
    int lists = 0;
    bool apart = false;
    bool first = true;
    bool last = true;
    bool hasLink = false;
    QString words;
    QVariantList runs;
};

} // namespace wardlock::window

Q_DECLARE_METATYPE(wardlock::window::WebTextEntry)
