import QtQuick
import Wardlock.Native

// A sheet that rises over the pages and covers them.
Modal {
    id: sheet
    default property alias content: paper.data
    property alias paper: paper
    /// Whether another sheet is over this one.
    property alias beneath: ground.covered

    /// Has the keyboard focus return to where it was when the other sheet has gone.
    function takeFocusBack() {
        ground.forceActiveFocus();
    }

    anchors.fill: parent
    focus: true
    Component.onCompleted: {
        forceActiveFocus();
        rise.start();
    }
    Accessible.role: Accessible.Dialog

    Layer {
        id: ground
        anchors.fill: parent
        focus: true
        Accessible.role: Accessible.Grouping
        Accessible.ignored: true

        Rectangle {
            anchors.fill: parent
            color: Theme.scrim
            MouseArea { anchors.fill: parent; hoverEnabled: true; onWheel: (wheel) => wheel.accepted = true }
        }
        Rectangle {
            id: paper
            width: Math.min(parent.width, Theme.widest)
            // Its lower corners are below the window.
            height: parent.height - 24 + radius
            anchors.horizontalCenter: parent.horizontalCenter
            y: 24
            radius: 12
            color: Theme.card
        }
    }
    NumberAnimation {
        id: rise
        target: paper
        property: Theme.reducedMotion ? "opacity" : "y"
        from: Theme.reducedMotion ? 0 : sheet.height
        to: Theme.reducedMotion ? 1 : 24
        duration: 280
        easing.type: Easing.OutCubic
    }
}
