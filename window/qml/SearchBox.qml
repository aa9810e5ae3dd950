import QtQuick
import Wardlock.Native

// The field to type into and the button that ends the search.
Item {
    id: box
    property alias text: input.text
    signal cancelled()
    signal accepted()

    function stops() {
        return [input].concat(input.text !== "" ? [clear] : [], [cancel]);
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
        height: box.height - 16
        radius: 10
        color: Theme.search

        Magnifier {
            anchors.left: parent.left
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            growth: Theme.signScale
            width: Math.round(15 * growth)
            height: Math.round(15 * growth)
            thickness: 1.5
            color: Theme.value
        }
        UndoField {
            id: input
            objectName: "search"
            anchors.left: parent.left
            anchors.leftMargin: 17 + Math.round(15 * Theme.signScale)
            anchors.right: clear.left
            anchors.top: parent.top
            anchors.bottom: parent.bottom
            horizontalAlignment: TextInput.AlignLeft
            verticalAlignment: TextInput.AlignVCenter
            color: Theme.label
            selectionColor: Theme.tint
            font.family: Theme.family
            font.pixelSize: Theme.barText
            clip: true
            Accessible.role: Accessible.EditableText
            Accessible.name: qsTr("Search")
            Keys.onEscapePressed: box.cancelled()
            onAccepted: box.accepted()
            TextMenuOpener {}
            Label {
                anchors.fill: parent
                verticalAlignment: Text.AlignVCenter
                visible: input.text === "" && input.preeditText === ""
                text: qsTr("Search")
                font.pixelSize: Theme.barText
                color: Theme.value
                Accessible.ignored: true
            }
        }
        FocusRing { target: input }
        ClearButton {
            id: clear
            objectName: "search:clear"
            visible: input.text !== ""
            height: parent.height
            anchors.right: parent.right
            onPressed: {
                input.clear();
                input.forceActiveFocus();
            }
        }
    }
    PlainButton {
        id: cancel
        objectName: "search:cancel"
        anchors.right: parent.right
        anchors.rightMargin: Theme.sideMargin(box.width)
        y: Math.round((box.height - height) / 2)
        activeFocusOnTab: false
        text: qsTr("Cancel")
        size: Theme.barText
        onPressed: box.cancelled()
    }
}
