import QtQuick
import Wardlock.Native

// Shows where the keyboard is.
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
