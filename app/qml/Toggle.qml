import QtQuick

// An on/off switch. It shows `on` and asks for the other state; it never changes by itself.
Item {
    id: toggle
    property bool on: false
    property bool animated: true
    property string label
    /// Whether it can be flipped at all; one that is only covered looks as ever.
    property bool available: true
    signal asked(bool on)

    implicitWidth: 51
    implicitHeight: 31
    activeFocusOnTab: true
    enabled: available
    opacity: available ? 1 : 0.5

    Accessible.role: Accessible.CheckBox
    Accessible.name: label
    Accessible.description: available ? "" : qsTr("Not available")
    Accessible.checkable: true
    Accessible.checked: on
    Accessible.focusable: true
    Accessible.onPressAction: asked(!on)
    Accessible.onToggleAction: asked(!on)
    Keys.onSpacePressed: asked(!on)
    Keys.onReturnPressed: asked(!on)
    Keys.onEnterPressed: asked(!on)

    Rectangle {
        anchors.fill: parent
        radius: height / 2
        color: toggle.on ? Look.on : Look.off
        Behavior on color {
            enabled: toggle.animated
            ColorAnimation { duration: 160 }
        }
    }
    Rectangle {
        readonly property bool atRight: toggle.on !== toggle.LayoutMirroring.enabled
        width: 27
        height: 27
        y: 2
        x: atRight ? toggle.width - width - 2 : 2
        radius: height / 2
        color: "white"
        border.color: "#1a000000"
        border.width: 1
        Behavior on x {
            enabled: toggle.animated
            NumberAnimation { duration: 160; easing.type: Easing.InOutQuad }
        }
    }
    FocusRing { radius: height / 2 }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: toggle.asked(!toggle.on)
    }
}
