import QtQuick
import Wardlock.Native

// A line of the mail sheet: its label and its text.
Item {
    id: field
    property string name
    property string value
    property bool readOnly: false
    signal edited(string text)

    width: parent ? parent.width : 0
    height: Theme.rowHeight

    Label {
        id: label
        anchors.left: parent.left
        anchors.leftMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        text: field.name
        color: Theme.secondary
        font.pixelSize: Theme.barText
        Accessible.ignored: true
    }
    TextInput {
        id: input
        objectName: "mail:" + field.name
        anchors.left: label.right
        anchors.leftMargin: 8
        anchors.right: parent.right
        anchors.rightMargin: Theme.inset
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: TextInput.AlignLeft
        color: beginning.active ? "transparent" : Theme.label
        selectionColor: Theme.tint
        font.family: Theme.family
        font.pixelSize: Theme.barText
        clip: true
        autoScroll: activeFocus
        readOnly: field.readOnly
        selectByMouse: true
        activeFocusOnTab: true
        Accessible.role: Accessible.EditableText
        Accessible.name: field.name
        Accessible.readOnly: readOnly
        Component.onCompleted: text = field.value
        onTextEdited: field.edited(text)
        TextMenuOpener {}
        ElidedText {
            id: beginning
            target: input
        }
    }
    FocusRing { target: input }
    Hairline {
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.leftMargin: Theme.inset
        anchors.right: parent.right
    }
}
