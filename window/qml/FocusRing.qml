import QtQuick
import Wardlock.Native

// Shows which item has the keyboard focus.
Rectangle {
    property Item target: parent
    objectName: "ring"
    anchors.fill: target
    visible: target.activeFocus
    color: "transparent"
    radius: Theme.corner
    border.color: Theme.focus
    border.width: 3
}
