#pragma once

#include "window/items/RowPainter.h"

#include <QObject>
#include <QString>

namespace wardlock::window {

/// One row of a table page as its cell shows it.
struct TableEntry {
    Q_GADGET

public:
    /// The row's name; its key where the page gives it none.
    QString title;
    bool nameless = false;
    /// The stable identifier of the row; empty for none.
    QString key;
    /// An address from PictureSource, empty for none.
    QString icon;
    /// In points, before it grows with the text.
    double height = 0;
    bool hasSwitch = false;
    bool on = false;
    /// Its index among the rows shown, and how many these are.
    int row = 0;
    int count = 0;
    PlaceInCard place;

    bool operator==(const TableEntry&) const = default;
};

} // namespace wardlock::window
