import QtQuick
import Wardlock.Native

// Shows which item has the keyboard focus, while the keyboard is in use.
Loader {
    id: ring
    property Item target: parent
    property bool onDark: false
    /// Keeps the ring away from the edge of what the target is on; `insetAcross` does so above and below.
    property real inset: 0
    property real insetAcross: inset

    anchors.fill: parent
    anchors.leftMargin: inset
    anchors.rightMargin: inset
    anchors.topMargin: insetAcross
    anchors.bottomMargin: insetAcross
    active: keyboard.inUse && target !== null && target.activeFocus
    sourceComponent: Rectangle {
        objectName: "ring"
        color: "transparent"
        radius: Theme.corner
        border.color: ring.onDark ? Theme.focusOnDark : Theme.focus
        border.width: Theme.focusWidth
    }
}
