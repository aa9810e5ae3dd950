import QtQuick

// A scrolling list that opens the page's search when it is pulled down, or with the keys for it.
Item {
    id: pullList
    required property var page
    property alias list: list
    property alias model: list.model
    property alias delegate: list.delegate

    function search() {
        field.begin();
    }

    SearchField {
        id: field
        width: parent.width
        onTextChanged: pullList.page.filter = text
        onClosed: list.forceActiveFocus()
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
