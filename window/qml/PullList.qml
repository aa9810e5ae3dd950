import QtQuick
import Wardlock.Native

// A scrolling list that opens the page's search when it is pulled down, by the wheel, or by its keys.
Item {
    id: pullList
    required property var page
    property alias list: list
    property alias model: list.model
    property alias delegate: list.delegate
    /// How much of the lower end is covered by notices.
    property real covered: 0
    /// Shown where there are no rows; empty for nothing.
    property string emptyText

    focus: true

    // Rows are created as they come into sight, so the view's own order of focus has only some of them, in any order.
    function focusRow(from, step) {
        for (let i = from + step; i >= 0 && i < list.count; i += step) {
            list.positionViewAtIndex(i, ListView.Contain);
            const row = list.itemAtIndex(i);
            if (row && row.focusTarget) {
                // The view bounds its position by an assumed height of the rows that it has not created.
                const shown = list.height - covered;
                if (row.y + row.height > list.contentY + shown)
                    list.contentY = row.y + row.height - shown;
                row.focusTarget.forceActiveFocus(step > 0 ? Qt.TabFocusReason : Qt.BacktabFocusReason);
                return true;
            }
        }
        return false;
    }
    function focusedRow() {
        for (let i = 0; i < list.count; ++i) {
            const row = list.itemAtIndex(i);
            if (row && row.focusTarget && row.focusTarget.activeFocus)
                return i;
        }
        return -1;
    }
    /// Moves the keyboard focus to the next row, from the first in sight where no row has it. Returns false behind the
    /// last.
    function stepRow(forward) {
        const focused = focusedRow();
        const start = focused < 0 && !list.atYBeginning ? list.indexAt(list.width / 2, list.contentY) - (forward ? 1 : 0) : focused;
        return focusRow(start, forward ? 1 : -1);
    }
    /// Moves the keyboard focus to the first row, or to the last. Returns false where there is none.
    function enterRows(forward) {
        return focusRow(forward ? -1 : list.count, forward ? 1 : -1);
    }
    /// What takes the keyboard focus before the rows, in order.
    function stopsBefore() {
        return field.stops();
    }
    /// The row whose part the item is; null for an item elsewhere.
    function rowOf(item) {
        let row = null;
        for (let outer = item; outer; outer = outer.parent) {
            if (row === null && outer.focusTarget === item)
                row = outer;
            if (outer === list.contentItem)
                return row;
        }
        return null;
    }
    readonly property Item rowInFocus: rowOf(Window.activeFocusItem)
    FocusRing {
        parent: pullList.rowInFocus !== null ? pullList.rowInFocus : pullList
        target: pullList.rowInFocus !== null ? pullList.rowInFocus.focusTarget : null
    }

    /// The place of the row under the mouse; -1 for none.
    readonly property int hoveredPlace: {
        const x = hover.point.position.x;
        const side = Theme.sideMargin(width);
        if (!hover.hovered || x < side || x > width - side)
            return -1;
        return list.indexAt(list.width / 2, hover.point.position.y - list.y + list.contentY);
    }
    Hover { id: hover }

    readonly property real firstY: list.originY - list.topMargin
    readonly property real lastY: Math.max(firstY, list.originY + list.contentHeight + list.bottomMargin - list.height)
    function showEnd(last) {
        if (!last)
            return list.positionViewAtBeginning();
        // Creates the last rows, but leaves out the margin below them.
        list.positionViewAtEnd();
        list.contentY = lastY;
    }
    function toEnd(last) {
        if (enterRows(!last))
            showEnd(last);
    }
    /// Scrolls by the height of the window, and moves the keyboard focus with it.
    function turnPage(forward) {
        const way = (forward ? 1 : -1) * Math.max(Theme.rowHeight, list.height - Theme.rowHeight);
        if (forward ? list.contentY + way >= lastY : list.contentY + way <= firstY)
            return toEnd(forward);
        list.contentY += way;
        focusRow(list.indexAt(list.width / 2, list.contentY) - 1, 1);
    }
    Keys.onPressed: (event) => {
        const forward = event.key === Qt.Key_Down;
        if (forward || event.key === Qt.Key_Up) {
            // Beyond the last row there may be text.
            if (!stepRow(forward))
                showEnd(forward);
        } else if (event.key === Qt.Key_Home || event.key === Qt.Key_End)
            toEnd(event.key === Qt.Key_End);
        else if (event.key === Qt.Key_PageUp || event.key === Qt.Key_PageDown)
            turnPage(event.key === Qt.Key_PageDown);
        else
            return;
        event.accepted = true;
    }

    function search() {
        field.begin();
    }
    Keys.onEscapePressed: (event) => {
        event.accepted = field.shown;
        if (field.shown)
            field.end();
    }

    // Scrolling up to the first row does not open the search, only a turn of the wheel that begins there.
    Timer {
        id: scrolling
        interval: 300
    }
    function turnWheel(up) {
        if (up && (scrolling.running || !list.atYBeginning))
            scrolling.restart();
        else if (up && !field.shown)
            field.begin();
        else if (!up && field.shown && field.text === "")
            field.end();
    }

    /// The place of the row to which a search has led; -1 for none.
    property int foundPlace: -1
    Timer {
        id: finding
        interval: 1500
        onTriggered: pullList.foundPlace = -1
    }
    Connections {
        target: pullList.page
        function onRowFound(place) {
            list.positionViewAtIndex(place, ListView.Center);
            pullList.foundPlace = place;
            finding.restart();
            // Editing begins with a tap.
            const row = list.itemAtIndex(place);
            if (row && row.focusTarget && !row.isField)
                row.focusTarget.forceActiveFocus(Qt.OtherFocusReason);
        }
    }

    SearchField {
        id: field
        width: parent.width
        onTextChanged: pullList.page.filter = text
        onAccepted: pullList.focusRow(-1, 1)
        onClosed: pullList.forceActiveFocus()
    }
    ListView {
        id: list
        objectName: "list"
        anchors.top: field.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        clip: true
        reuseItems: true
        // A current row would be kept when it is out of sight, and the view's own keys set one.
        currentIndex: -1
        keyNavigationEnabled: false
        boundsBehavior: Flickable.DragAndOvershootBounds
        flickDeceleration: 2200
        maximumFlickVelocity: 6000
        // Rows out of sight cost nothing until the keyboard or a screen reader moves there.
        cacheBuffer: indicator.active || settings.isAssisted() ? 200 : 0
        bottomMargin: 28 + pullList.covered
        Accessible.role: Accessible.List
        Accessible.name: pullList.page.title

        onMovementStarted: indicator.active = true

        property bool complete: false
        Component.onCompleted: complete = true

        property bool pulled: false
        onDragStarted: {
            pulled = false;
            pullList.page.dragList();
        }
        onVerticalOvershootChanged: if (dragging && verticalOvershoot < -56) pulled = true
        onDragEnded: if (pulled && !field.shown) field.begin()
    }
    Item {
        anchors.fill: list
        z: 1
        WheelHandler {
            target: null
            blocking: false
            acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
            onWheel: (event) => {
                if (event.angleDelta.y !== 0)
                    pullList.turnWheel(event.angleDelta.y > 0);
            }
        }
    }
    Loader {
        id: indicator
        active: false
        anchors.right: parent.right
        sourceComponent: ScrollIndicator { list: pullList.list }
    }
    Loader {
        id: hint
        active: list.complete && list.count === 0 && words !== ""
        readonly property string words: pullList.page.filter !== "" ? qsTr("Nothing found") : pullList.emptyText
        anchors.horizontalCenter: parent.horizontalCenter
        y: field.height + 40
        sourceComponent: Label {
            text: hint.words
            color: Theme.secondary
        }
    }
}
