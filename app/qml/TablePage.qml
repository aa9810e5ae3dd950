import QtQuick

// A page that is one table: an icon, a title and a switch in each row.
PullList {
    id: tablePage
    model: page.table
    list.topMargin: 20

    delegate: Item {
        id: cell
        required property int index
        required property string title
        required property string detail
        required property string key
        required property string icon
        required property bool on
        required property bool hasSwitch
        required property real rowHeight

        readonly property real side: Look.sideMargin(width)

        readonly property Item focusTarget: hasSwitch ? toggle : null
        ListView.onPooled: {
            if (toggle.activeFocus)
                tablePage.forceActiveFocus();
            visible = false;
        }
        ListView.onReused: visible = true

        objectName: "cell:" + key
        width: ListView.view ? ListView.view.width : 0
        height: Math.max(rowHeight, Math.round(rowHeight * Look.textScale))

        Card {
            id: card
            x: cell.side
            width: cell.width - 2 * cell.side
            height: parent.height
            first: cell.index === 0
            last: cell.index === cell.ListView.view.count - 1
            separatorInset: Look.inset + Look.icon + 15
        }
        RowIcon {
            id: icon
            source: cell.icon
            anchors.left: card.left
            anchors.leftMargin: Look.inset
            anchors.verticalCenter: parent.verticalCenter
        }
        Label {
            anchors.left: card.left
            anchors.leftMargin: Look.inset + Look.icon + 15
            anchors.right: toggle.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: cell.title
            Accessible.ignored: true
        }
        Toggle {
            id: toggle
            objectName: "switch:" + cell.key
            visible: cell.hasSwitch
            label: cell.title !== "" ? cell.title : cell.key
            on: cell.on
            anchors.right: card.right
            anchors.rightMargin: Look.inset
            anchors.verticalCenter: parent.verticalCenter
            onAsked: tablePage.page.flipTableSwitch(cell.index)
        }
    }
}
