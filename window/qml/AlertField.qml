import QtQuick
import Wardlock.Native

// A text field of an alert.
Item {
    id: field
    property alias input: input
    property string placeholder
    signal typed(string text)
    signal entered()

    height: 16 + box.height

    Rectangle {
        id: box
        y: 16
        width: parent.width
        height: Math.max(34, Math.round(34 * Theme.textScale))
        radius: 7
        color: Theme.field
        border.color: Theme.separator

        TextInput {
            id: input
            anchors.fill: parent
            anchors.leftMargin: 8
            anchors.rightMargin: 8
            horizontalAlignment: TextInput.AlignLeft
            verticalAlignment: TextInput.AlignVCenter
            color: Theme.label
            selectionColor: Theme.tint
            font.family: Theme.family
            font.pixelSize: Math.round(15 * Theme.textScale)
            clip: true
            selectByMouse: true
            activeFocusOnTab: true
            Accessible.role: Accessible.EditableText
            Accessible.name: field.placeholder
            onTextEdited: field.typed(text)
            onAccepted: field.entered()
            TextMenuOpener {}

            Label {
                anchors.fill: parent
                verticalAlignment: Text.AlignVCenter
                visible: input.text === "" && input.preeditText === ""
                text: field.placeholder
                font.pixelSize: input.font.pixelSize
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 13
                color: Theme.placeholder
                Accessible.ignored: true
            }
        }
        FocusRing { target: input }
    }
}
