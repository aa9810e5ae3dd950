import QtQuick
import Wardlock.Native

// The mark of the chosen row.
Item {
    implicitWidth: Math.round(16 * Theme.signScale)
    implicitHeight: Math.round(14 * Theme.signScale)
    Item {
        scale: Theme.signScale
        transformOrigin: Item.TopLeft
        Rectangle { x: 0; y: 8; width: 7; height: 2; radius: 1; rotation: 45; antialiasing: true; color: Theme.tint }
        Rectangle { x: 3; y: 6; width: 13; height: 2; radius: 1; rotation: -50; antialiasing: true; color: Theme.tint }
    }
}
