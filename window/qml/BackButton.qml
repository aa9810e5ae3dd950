import QtQuick
import Wardlock.Native

// The way back to the page below, at the beginning of its navigation bar.
Item {
    id: button
    required property string title
    /// The width up to which the title is shown; else the button says "Back".
    required property real most

    /// The width of the arrow and of the space around it and the text.
    readonly property real around: 22 + arrow.width
    objectName: "back"
    implicitWidth: around + label.implicitWidth
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Back to %1").arg(title)
    Accessible.focusable: true
    Accessible.onPressAction: settings.goBack()
    Keys.onSpacePressed: settings.goBack()
    Keys.onReturnPressed: settings.goBack()
    opacity: tap.pressed ? 0.4 : hover.hovered ? 0.7 : 1

    Chevron {
        id: arrow
        back: true
        color: Theme.tint
        thickness: 2.5
        growth: Theme.barScale
        width: Math.round(12 * growth)
        height: Math.round(20 * growth)
        anchors.left: parent.left
        anchors.leftMargin: 10
        anchors.verticalCenter: parent.verticalCenter
    }
    TextMetrics {
        id: full
        // Each reading measures the text again.
        readonly property real once: width
        font: label.font
        text: button.title
    }
    Label {
        id: label
        anchors.left: arrow.right
        anchors.leftMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        text: full.once + button.around <= button.most ? button.title : qsTr("Back")
        color: Theme.tint
        font.pixelSize: Theme.barText
        Accessible.ignored: true
    }
    FocusRing {}
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: settings.goBack()
    }
}
