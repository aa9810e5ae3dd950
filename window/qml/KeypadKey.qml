import QtQuick

// One digit of the keypad.
Item {
    id: key
    property int digit: 0
    signal pressed(int digit)

    objectName: "key:" + digit
    Accessible.role: Accessible.Button
    Accessible.name: digit
    Accessible.onPressAction: pressed(digit)

    Rectangle {
        anchors.fill: parent
        radius: width / 2
        color: "white"
        opacity: tap.pressed ? 0.45 : hover.hovered ? 0.28 : 0.18
        Behavior on opacity { NumberAnimation { duration: 120 } }
    }
    Label {
        anchors.centerIn: parent
        text: key.digit
        color: "white"
        font.pixelSize: Math.round(key.width * 0.45)
        font.weight: Font.Light
        Accessible.ignored: true
    }
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: key.pressed(key.digit)
    }
}
