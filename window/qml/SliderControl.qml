import QtQuick
import Wardlock.Native

// A slider between 0 and 1. It stores its value when it is released.
Item {
    id: slider
    property real position: 0
    property string label
    /// Of its row in the list, for assistive technology.
    property string place
    /// For assistive technology: the values of the two ends, and the present value as text.
    property real minimumValue: 0
    property real maximumValue: 1
    readonly property real value: minimumValue + shown * (maximumValue - minimumValue)
    readonly property real stepSize: 0.05 * (maximumValue - minimumValue)
    signal movedTo(real position)

    readonly property real shown: drag.held ? held : position
    property real held: 0
    readonly property real knob: Math.round(28 * Theme.signScale)
    readonly property real track: width - knob

    implicitHeight: knob + 3
    Accessible.role: Accessible.Slider
    Accessible.name: label
    Accessible.description: place
    Accessible.focusable: true
    Accessible.onIncreaseAction: step(0.1)
    Accessible.onDecreaseAction: step(-0.1)
    Keys.onLeftPressed: step(LayoutMirroring.enabled ? 0.05 : -0.05)
    Keys.onRightPressed: step(LayoutMirroring.enabled ? -0.05 : 0.05)

    function step(by) {
        movedTo(Math.max(0, Math.min(1, position + by)));
    }
    function at(x) {
        const along = Math.max(0, Math.min(1, (x - knob / 2) / track));
        return LayoutMirroring.enabled ? 1 - along : along;
    }

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        x: slider.knob / 2
        width: slider.track
        height: 4
        radius: 2
        color: Theme.off
        Rectangle {
            anchors.left: parent.left
            width: parent.width * slider.shown
            height: parent.height
            radius: 2
            color: Theme.tint
        }
    }
    Rectangle {
        width: slider.knob
        height: slider.knob
        radius: width / 2
        anchors.verticalCenter: parent.verticalCenter
        x: slider.track * (slider.LayoutMirroring.enabled ? 1 - slider.shown : slider.shown)
        color: "white"
        border.color: "#24000000"
    }
    SwipeHandler {
        id: drag
        dragThreshold: 2
        onCentroidChanged: if (active) slider.held = slider.at(centroid.position.x)
        onBegan: slider.held = slider.position
        onReleased: slider.movedTo(slider.held)
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: (eventPoint) => slider.movedTo(slider.at(eventPoint.position.x))
    }
}
