#pragma once

#include "window/items/StrokedItem.h"

namespace wardlock::window {

/// The sign of a search.
class Magnifier : public StrokedItem {
    Q_OBJECT

public:
    explicit Magnifier(QQuickItem* parent = nullptr) : StrokedItem(parent, {19, 19}) {}

    void paint(QPainter& painter) override;
};

} // namespace wardlock::window
