import QtQuick
import Wardlock.Native

// Empties a text field, at the end of which it stands.
Pressable {
    id: button

    width: Math.round(32 * Theme.signScale)
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Clear")
    Accessible.focusable: true
    Accessible.onPressAction: pressed()
    opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1

    Rectangle {
        anchors.centerIn: parent
        width: 18
        height: 18
        radius: 9
        scale: Theme.signScale
        color: Theme.value
        Repeater {
            model: [45, -45]
            Rectangle {
                required property int modelData
                anchors.centerIn: parent
                width: 10
                height: 1.5
                rotation: modelData
                antialiasing: true
                color: Theme.search
            }
        }
    }
    FocusRing {}
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
