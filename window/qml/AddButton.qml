import QtQuick
import Wardlock.Native

// The page's button, at the end of its navigation bar.
Pressable {
    id: button
    objectName: "add"
    implicitWidth: Math.round(52 * Math.max(1, Theme.barScale))
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Add")
    Accessible.focusable: true
    Accessible.onPressAction: pressed()
    onPressed: settings.tapBarButton()
    opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1

    // Even numbers, so that the bars are in the middle of each other.
    readonly property int arm: 2 * Math.round(10 * Theme.barScale)
    Rectangle { anchors.centerIn: parent; width: parent.arm; height: 2; radius: 1; color: Theme.tint }
    Rectangle { anchors.centerIn: parent; width: 2; height: parent.arm; radius: 1; color: Theme.tint }
    FocusRing {}
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
