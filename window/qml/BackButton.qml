import QtQuick
import Wardlock.Native

// The way back to the page below, at the beginning of its navigation bar.
Pressable {
    id: button
    required property string title
    required property real barWidth
    /// The title of the page that is shown, and the room for it and this button.
    required property string pageTitle
    required property real titleRoom

    /// The width of the arrow and of the space around it and the text.
    readonly property real around: 22 + arrow.width
    objectName: "back"
    implicitWidth: around + label.implicitWidth
    Accessible.role: Accessible.Button
    Accessible.name: qsTr("Back to %1").arg(title)
    Accessible.focusable: true
    Accessible.onPressAction: pressed()
    onPressed: settings.goBack()
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
    TextMetrics {
        id: brief
        font: label.font
        text: qsTr("Back")
    }
    TextMetrics {
        id: beside
        font.family: Theme.family
        font.pixelSize: Theme.barText
        font.weight: Font.DemiBold
        text: button.pageTitle
    }
    /// Returns the title where it is short; else "Back", and nothing where that would leave the page's own title too little.
    function words() {
        if (full.once + around <= barWidth * 0.35)
            return title;
        const left = titleRoom - around - brief.width;
        return beside.advanceWidth + 2 > left && left < barWidth * 0.45 ? "" : brief.text;
    }
    Label {
        id: label
        anchors.left: arrow.right
        anchors.leftMargin: 6
        anchors.verticalCenter: parent.verticalCenter
        text: button.words()
        color: Theme.tint
        font.pixelSize: Theme.barText
        Accessible.ignored: true
    }
    FocusRing {}
    Hover { id: hover }
    TapHandler {
        id: tap
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.pressed()
    }
}
