import QtQuick
import Wardlock.Native

// Shows where the keyboard is.
Rectangle {
    property Item target: parent
    objectName: "ring"
    anchors.fill: target
    visible: target.activeFocus
    color: "transparent"
    radius: Look.corner
    border.color: Look.focus
    border.width: 3
}
