#pragma once

#include <QCoreApplication>
#include <QString>

namespace wardlock::window {

/// Returns what a screen reader says of a row's place among the rows of its page, for example "3 of 40";
/// empty for the only row, and for what is not a row. `number` begins at 1.
inline QString placeInList(int number, int count) {
    if (number < 1 || count < 2)
        return {};
    return QCoreApplication::translate("PlaceInList", "%1 of %2").arg(number).arg(count);
}

} // namespace wardlock::window
