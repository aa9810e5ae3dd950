import QtQuick
import Wardlock.Native

// The page's button, at the end of its navigation bar.
Item {
    objectName: "add"
    implicitWidth: 52
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Add")
    Accessible.focusable: true
    Accessible.onPressAction: settings.tapBarButton()
    Keys.onSpacePressed: settings.tapBarButton()
    Keys.onReturnPressed: settings.tapBarButton()
    opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1

    Rectangle { anchors.centerIn: parent; width: 20; height: 2; radius: 1; color: Theme.tint }
    Rectangle { anchors.centerIn: parent; width: 2; height: 20; radius: 1; color: Theme.tint }
    FocusRing {}
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: settings.tapBarButton()
    }
}
