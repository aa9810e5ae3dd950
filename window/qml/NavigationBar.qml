import QtQuick
import Wardlock.Native

// The bar over a page: the way back, the title, the page's button.
Rectangle {
    id: bar
    required property var page

    /// Whether the window's own order of focus includes the buttons.
    property bool inWindowOrder: true
    signal searchRequested()

    height: Theme.barHeight
    color: Theme.bar

    /// What takes the keyboard focus, in order.
    function stops() {
        return (back.visible ? [back] : []).concat(find.active ? [find.item] : [], add.active ? [add.item] : []);
    }

    /// The space that the title leaves free at its beginning and its end.
    readonly property real before: (back.visible ? back.width : 0) + 12
    readonly property real after: (add.active ? add.width : 0) + (find.active ? find.width : 0) + 12

    Item {
        id: back
        objectName: "back"
        visible: bar.page.backTitle !== ""
        height: parent.height
        width: around + backLabel.implicitWidth
        /// The width of the arrow and of the space around it and the text.
        readonly property real around: 22 + arrow.width
        anchors.left: parent.left
        activeFocusOnTab: bar.inWindowOrder
        Accessible.role: Accessible.Button
        Accessible.name: qsTr("Back to %1").arg(bar.page.backTitle)
        Accessible.focusable: true
        Accessible.onPressAction: settings.goBack()
        Keys.onSpacePressed: settings.goBack()
        Keys.onReturnPressed: settings.goBack()
        opacity: backTap.pressed ? 0.4 : backHover.hovered ? 0.7 : 1

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
        Label {
            id: backLabel
            anchors.left: arrow.right
            anchors.leftMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            text: fullBack.width + back.around <= bar.width * 0.35 ? bar.page.backTitle : qsTr("Back")
            color: Theme.tint
            font.pixelSize: Theme.barText
            Accessible.ignored: true
        }
        FocusRing {}
        Hover { id: backHover }
        TapHandler {
            id: backTap
            gesturePolicy: TapHandler.ReleaseWithinBounds
            onTapped: settings.goBack()
        }
    }

    TextMetrics {
        id: fullBack
        font: backLabel.font
        text: bar.page.backTitle
    }
    TextMetrics {
        id: fullTitle
        font: title.font
        text: title.text
    }
    Label {
        id: title
        objectName: "title"
        anchors.verticalCenter: parent.verticalCenter
        // In the middle of the bar as long as it fits there, and never over a button.
        x: LayoutMirroring.enabled ? bar.width - width - start : start
        readonly property real start: Math.max(bar.before, Math.min(Math.round((bar.width - width) / 2),
                                                                    bar.width - bar.after - width))
        width: Math.min(Math.ceil(fullTitle.advanceWidth) + 2, Math.floor(bar.width - bar.before - bar.after))
        horizontalAlignment: Text.AlignHCenter
        text: bar.page.title
        font.pixelSize: Theme.barText
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    Loader {
        id: find
        active: bar.page.kind === "list" || bar.page.kind === "table"
        height: parent.height
        anchors.right: parent.right
        anchors.rightMargin: add.active ? add.width : 4
        sourceComponent: SearchButton {
            activeFocusOnTab: bar.inWindowOrder
            onPressed: bar.searchRequested()
        }
    }
    Loader {
        id: add
        active: bar.page.hasAddButton
        height: parent.height
        anchors.right: parent.right
        sourceComponent: AddButton { activeFocusOnTab: bar.inWindowOrder }
    }

    Hairline {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
    }
}
