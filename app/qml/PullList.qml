import QtQuick

// A scrolling list that opens the page's search when it is pulled down, or with the keys for it.
Item {
    id: pullList
    required property var page
    property alias list: list
    property alias model: list.model
    property alias delegate: list.delegate

    /// The keyboard leaves the list over its first or last row.
    signal tabbedOut(bool forward)
    focus: true

    // Rows are made as they come into sight, so the view's own order of focus knows only some of them, and those in any
    // order.
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
    Keys.onPressed: (event) => {
        const tab = event.key === Qt.Key_Tab || event.key === Qt.Key_Backtab;
        if (!tab && event.key !== Qt.Key_Down && event.key !== Qt.Key_Up)
            return;
        const forward = event.key === Qt.Key_Tab || event.key === Qt.Key_Down;
        if (!focusRow(focusedRow(), forward ? 1 : -1) && tab)
            tabbedOut(forward);
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
        // A current row would be kept when it is out of sight.
        currentIndex: -1
        boundsBehavior: Flickable.DragAndOvershootBounds
        flickDeceleration: 2200
        maximumFlickVelocity: 6000
        cacheBuffer: 200
        bottomMargin: 28
        Accessible.role: Accessible.List
        Accessible.name: pullList.page.title

        property bool pulled: false
        onDragStarted: {
            pulled = false;
            pullList.page.dragList();
        }
        onVerticalOvershootChanged: if (dragging && verticalOvershoot < -56) pulled = true
        onDragEnded: if (pulled && !field.shown) field.begin()
    }
    ScrollIndicator { list: list }
    Label {
        visible: pullList.page.filter !== "" && list.count === 0
        anchors.horizontalCenter: parent.horizontalCenter
        y: field.height + 40
        text: qsTr("Nothing found")
        color: Look.secondary
    }
}
