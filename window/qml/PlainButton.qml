import QtQuick
import Wardlock.Native

// A text that can be pressed.
Pressable {
    id: button
    property string text
    property color color: Theme.tint
    property bool strong: false
    property int size: Theme.body
    /// Uses smaller letters instead of cutting the text off.
    property bool shrinks: false
    /// Whether it can be pressed at all; a covered button looks as usual.
    property bool available: true
    /// Whether it is on something dark in every appearance.
    property bool onDark: false
    property real ringInset: 0
    property real ringInsetAcross: ringInset
    /// How far the text may reach over each end.
    property real overhang: 0

    implicitWidth: label.implicitWidth
    implicitHeight: Math.max(label.implicitHeight, 44)
    enabled: available
    activeFocusOnTab: available

    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.description: available ? "" : qsTr("Not available")
    Accessible.focusable: available
    Accessible.onPressAction: if (available) pressed()

    Label {
        id: label
        anchors.fill: parent
        anchors.leftMargin: -button.overhang
        anchors.rightMargin: -button.overhang
        text: button.text
        color: button.available ? button.color : button.onDark ? "#98989f" : Theme.placeholder
        opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1
        font.weight: button.strong ? Font.DemiBold : Font.Normal
        font.pixelSize: button.size
        fontSizeMode: button.shrinks ? Text.HorizontalFit : Text.FixedSize
        minimumPixelSize: 8
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    FocusRing {
        onDark: button.onDark
        inset: button.ringInset
        insetAcross: button.ringInsetAcross
    }
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
