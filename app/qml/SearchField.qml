import QtQuick
import Wardlock.Native

// Pulled down over a list: filters its rows.
Item {
    id: search
    property alias text: input.text
    property bool shown: false
    signal closed()

    implicitHeight: shown ? 52 : 0
    visible: implicitHeight > 0
    clip: true
    Behavior on implicitHeight { enabled: !Look.reducedMotion; NumberAnimation { duration: 180; easing.type: Easing.OutCubic } }

    function begin() {
        shown = true;
        input.forceActiveFocus();
    }
    function end() {
        input.text = "";
        shown = false;
        closed();
    }

    Rectangle {
        anchors.left: parent.left
        anchors.leftMargin: Look.sideMargin(search.width)
        anchors.right: cancel.left
        anchors.rightMargin: 12
        y: 8
        height: 36
        radius: 10
        color: Look.search

        TextInput {
            id: input
            objectName: "search"
            anchors.fill: parent
            anchors.leftMargin: 12
            anchors.rightMargin: 12
            verticalAlignment: TextInput.AlignVCenter
            color: Look.label
            selectionColor: Look.tint
            font.family: Look.family
            font.pixelSize: Look.body
            clip: true
            activeFocusOnTab: true
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Search")
            Keys.onEscapePressed: search.end()
            Label {
                anchors.fill: parent
                verticalAlignment: Text.AlignVCenter
                visible: input.text === "" && input.preeditText === ""
                text: qsTr("Search")
                color: Look.value
                Accessible.ignored: true
            }
        }
    }
    PlainButton {
        id: cancel
        objectName: "search:cancel"
        anchors.right: parent.right
        anchors.rightMargin: Look.sideMargin(search.width)
        y: 4
        text: qsTr("Cancel")
        onPressed: search.end()
    }
}
