import QtQuick
import Wardlock.Native

// A page that is one table: an icon, a title and a switch in each row.
PullList {
    id: tablePage
    model: page.table
    emptyText: qsTr("Nothing here")
    list.topMargin: 20
    readonly property real side: Theme.sideMargin(width)

    delegate: TableCell {
        id: cell
        x: tablePage.side
        width: tablePage.width - 2 * tablePage.side
        onFlipped: (row) => tablePage.page.flipTableSwitch(row)

        ListView.onPooled: {
            if (focusTarget && focusTarget.activeFocus)
                tablePage.forceActiveFocus();
            visible = false;
        }
        ListView.onReused: visible = true
    }
}
