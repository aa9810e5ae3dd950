import QtQuick
import Wardlock.Native

// Shows how far a list is scrolled while it moves.
Rectangle {
    required property Flickable list
    readonly property real part: list.visibleArea.heightRatio

    anchors.right: parent.right
    anchors.rightMargin: 3
    y: list.y + list.visibleArea.yPosition * list.height
    width: 3
    height: Math.max(30, part * list.height)
    radius: 1.5
    color: Theme.dark ? "#80ffffff" : "#60000000"
    opacity: list.moving && part < 1 ? 1 : 0
    Behavior on opacity { NumberAnimation { duration: 250 } }
}
