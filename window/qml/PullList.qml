import QtQuick
import Wardlock.Native

// A scrolling list that opens the page's search when it is pulled down, or by its keys.
Item {
    id: pullList
    required property var page
    property alias list: list
    property alias model: list.model
    property alias delegate: list.delegate
    /// Shown where there are no rows; empty for nothing.
    property string emptyText

    /// The keyboard focus leaves the list over its first or last row.
    signal tabbedOut(bool forward)
    focus: true

    // Rows are created as they come into sight, so the view's own order of focus has only some of them, in any order.
    function focusRow(from, step) {
        for (let i = from + step; i >= 0 && i < list.count; i += step) {
            list.positionViewAtIndex(i, ListView.Contain);
            const row = list.itemAtIndex(i);
            if (row && row.focusTarget) {
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
    /// Moves to the next row, from the first in sight where no row has the focus. Also shows the texts beyond the last
    /// row.
    function step(forward, tab) {
        const focused = focusedRow();
        const start = focused < 0 && !list.atYBeginning ? list.indexAt(list.width / 2, list.contentY) - (forward ? 1 : 0) : focused;
        if (focusRow(start, forward ? 1 : -1))
            return;
        if (tab)
            tabbedOut(forward);
        else
            showEnd(forward);
    }
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
        if (focusRow(last ? list.count : -1, last ? -1 : 1))
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
        const tab = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab;
        if (tab || event.key === Qt.Key_Down || event.key === Qt.Key_Up)
            step(event.key === Qt.Key_Tab || event.key === Qt.Key_Down, tab);
        else if (event.key === Qt.Key_Home || event.key === Qt.Key_End)
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

    SearchField {
        id: field
        width: parent.width
        onTextChanged: pullList.page.filter = text
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
        bottomMargin: 28
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
