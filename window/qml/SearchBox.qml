import QtQuick
import Wardlock.Native

// The field to type into and the button that ends the search.
Item {
    id: box
    property alias text: input.text
    signal cancelled()

    function stops() {
        return [input, cancel];
    }

    function begin() {
        input.forceActiveFocus();
    }

    Rectangle {
        anchors.left: parent.left
        anchors.leftMargin: Theme.sideMargin(box.width)
        anchors.right: cancel.left
        anchors.rightMargin: 12
        y: 8
        height: 36
        radius: 10
        color: Theme.search

        TextInput {
            id: input
            objectName: "search"
            anchors.fill: parent
            anchors.leftMargin: 12
            anchors.rightMargin: 12
            verticalAlignment: TextInput.AlignVCenter
            color: Theme.label
            selectionColor: Theme.tint
            font.family: Theme.family
            font.pixelSize: Theme.body
            clip: true
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Search")
            Keys.onEscapePressed: box.cancelled()
            Label {
                anchors.fill: parent
                verticalAlignment: Text.AlignVCenter
                visible: input.text === "" && input.preeditText === ""
                text: qsTr("Search")
                color: Theme.value
                Accessible.ignored: true
            }
        }
        FocusRing { target: input }
    }
    PlainButton {
        id: cancel
        objectName: "search:cancel"
        anchors.right: parent.right
        anchors.rightMargin: Theme.sideMargin(box.width)
        y: 4
        activeFocusOnTab: false
        text: qsTr("Cancel")
        onPressed: box.cancelled()
    }
}
