import QtQuick
import Wardlock.Native

// Shows which item has the keyboard focus, while the keyboard is in use.
Rectangle {
    property Item target: parent
    property bool onDark: false
    /// Keeps the ring away from the edge of what the target is on.
    property real inset: 0
    objectName: "ring"
    anchors.fill: parent
    anchors.margins: inset
    visible: keyboard.inUse && target !== null && target.activeFocus
    color: "transparent"
    radius: Theme.corner
    border.color: onDark ? Theme.focusOnDark : Theme.focus
    border.width: Theme.focusWidth
}
