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
        return (back.active ? [back.item] : []).concat(find.active ? [find.item] : [], add.active ? [add.item] : []);
    }

    /// The space that the title leaves free at its beginning and its end.
    readonly property real before: (back.active ? back.width : 0) + 12
    readonly property real after: (add.active ? add.width : 0) + (find.active ? find.width : 0) + 12

    Loader {
        id: back
        active: bar.page.backTitle !== ""
        height: parent.height
        anchors.left: parent.left
        sourceComponent: BackButton {
            activeFocusOnTab: bar.inWindowOrder
            title: bar.page.backTitle
            barWidth: bar.width
            titleRoom: bar.width - 12 - bar.after
            pageTitle: bar.page.title
        }
    }
    Label {
        id: title
        objectName: "title"
        anchors.verticalCenter: parent.verticalCenter
        // In the middle of the bar as long as it fits there, and never over a button.
        x: LayoutMirroring.enabled ? bar.width - width - start : start
        readonly property real start: Math.max(bar.before, Math.min(Math.round((bar.width - width) / 2),
                                                                    bar.width - bar.after - width))
        width: Math.min(Math.ceil(implicitWidth) + 2, Math.floor(bar.width - bar.before - bar.after))
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
