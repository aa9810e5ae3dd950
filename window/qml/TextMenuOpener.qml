import QtQuick
import QtQuick.Window

// Opens the menu of the text field that it is a part of: by the right button of the mouse, or a long touch.
Item {
    id: opener
    readonly property Item field: parent

    anchors.fill: parent
    TapHandler {
        acceptedButtons: Qt.RightButton
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: (point) => opener.Window.window.textMenu().open(opener.field, point.position)
    }
    TapHandler {
        acceptedDevices: PointerDevice.TouchScreen
        onLongPressed: opener.Window.window.textMenu().open(opener.field, point.position)
    }
}
