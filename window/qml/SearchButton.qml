import QtQuick
import Wardlock.Native

// Opens the search of the page.
Pressable {
    id: button

    objectName: "search:open"
    implicitWidth: Math.round(44 * Math.max(1, Theme.barScale))
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Search")
    Accessible.focusable: true
    Accessible.onPressAction: pressed()
    opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1

    Magnifier {
        anchors.centerIn: parent
        color: Theme.tint
        growth: Theme.barScale
    }
    FocusRing {}
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
