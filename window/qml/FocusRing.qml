import QtQuick
import Wardlock.Native

// Shows which item has the keyboard focus, while the keyboard is in use.
Loader {
    id: ring
    property Item target: parent
    property bool onDark: false
    /// Keeps the ring away from the edge of what the target is on.
    property real inset: 0

    anchors.fill: parent
    anchors.margins: inset
    active: keyboard.inUse && target !== null && target.activeFocus
    sourceComponent: Rectangle {
        objectName: "ring"
        color: "transparent"
        radius: Theme.corner
        border.color: ring.onDark ? Theme.focusOnDark : Theme.focus
        border.width: Theme.focusWidth
    }
}
