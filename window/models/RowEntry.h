#pragma once

#include "window/items/PlaceInList.h"

#include <QObject>
#include <QString>

namespace wardlock::window {

/// One line of a list page as QML shows it: a section's header or footer, or a row.
struct RowEntry {
    Q_GADGET
    Q_PROPERTY(QString entry MEMBER entry)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(int section MEMBER section)
    Q_PROPERTY(int row MEMBER row)
    Q_PROPERTY(QString kind MEMBER kind)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString value MEMBER value)
    Q_PROPERTY(bool cut MEMBER cut)
    Q_PROPERTY(QString key MEMBER key)
    Q_PROPERTY(bool on MEMBER on)
    Q_PROPERTY(bool enabled MEMBER enabled)
    Q_PROPERTY(bool choice MEMBER choice)
    Q_PROPERTY(bool marked MEMBER marked)
    Q_PROPERTY(QString icon MEMBER icon)
    Q_PROPERTY(QString placeholder MEMBER placeholder)
    Q_PROPERTY(bool numberPad MEMBER numberPad)
    Q_PROPERTY(bool editing MEMBER editing)
    Q_PROPERTY(double min MEMBER min)
    Q_PROPERTY(double max MEMBER max)
    Q_PROPERTY(double position MEMBER position)
    Q_PROPERTY(bool showsValue MEMBER showsValue)
    Q_PROPERTY(int number MEMBER number)
    Q_PROPERTY(int count MEMBER count)
    /// Number and count for a screen reader.
    Q_PROPERTY(QString place READ place)
    Q_PROPERTY(bool first MEMBER first)
    Q_PROPERTY(bool last MEMBER last)

public:
    /// "header", "footer" or "row".
    QString entry;
    /// Of a header or footer.
    QString text;
    int section = 0;
    int row = 0;
    /// "link", "linkList", "slider", "switch", "staticText", "editText", "secureEditText" or "button".
    QString kind;
    QString label;
    QString value;
    /// Whether the value is only the beginning of the stored one.
    bool cut = false;
    /// The key of the stored value, empty for none.
    QString key;
    bool on = false;
    bool enabled = true;
    /// Whether the row is one of several choices, and whether it is the chosen one.
    bool choice = false;
    bool marked = false;
    /// An address from PictureSource, empty for none.
    QString icon;
    QString placeholder;
    bool numberPad = false;
    bool editing = false;
    double min = 0;
    double max = 1;
    double position = 0;
    bool showsValue = false;
    /// The row's place among the rows of the page, from 1, and how many these are; 0 for a header or footer.
    int number = 0;
    int count = 0;
    /// Whether it is the first or last row of its card.
    bool first = false;
    bool last = false;

    QString place() const { return placeInList(number, count); }

    bool operator==(const RowEntry&) const = default;
};

} // namespace wardlock::window
