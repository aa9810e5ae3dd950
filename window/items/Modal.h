#pragma once

#include "window/items/Layer.h"

namespace wardlock::window {

/// A layer that is a dialog: as long as it is there, the user can reach nothing else in the window. In QML it
/// needs an Accessible.role.
class Modal : public Layer {
    Q_OBJECT

public:
    using Layer::Layer;
};

} // namespace wardlock::window
