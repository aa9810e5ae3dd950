import QtQuick
import Wardlock.Native

// A page of sections and rows.
PullList {
    id: listPage
    model: page.rows

    delegate: Item {
        id: line
        required property var entry
        required property int index

        readonly property real side: Theme.sideMargin(width)

        width: ListView.view ? ListView.view.width : 0
        height: content.item ? content.item.implicitHeight : 0

        // A row that scrolls out of sight takes no more keys, and is hidden from assistive technology.
        ListView.onPooled: {
            if (activeFocusInside)
                listPage.forceActiveFocus();
            visible = false;
        }
        ListView.onReused: visible = true
        readonly property bool activeFocusInside: content.item !== null && content.item.holdsFocus === true
        readonly property bool isField: content.item !== null && content.item.isField === true
        readonly property Item focusTarget: content.item && content.item.focusTarget ? content.item.focusTarget : null

        Loader {
            id: content
            x: line.side
            width: line.width - 2 * line.side
            height: item ? item.implicitHeight : 0
            sourceComponent: line.entry.entry === "row" ? rowComponent : textComponent
        }
        Component {
            id: rowComponent
            SettingsRow {
                page: listPage.page
                entry: line.entry
                found: listPage.foundPlace === line.index
                hovered: listPage.hoveredPlace === line.index
            }
        }
        Component {
            id: textComponent
            SectionText {
                text: line.entry.text
                isHeader: line.entry.entry === "header"
                isFirst: line.index === 0
            }
        }
    }
}
