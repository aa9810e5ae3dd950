import QtQuick
import Wardlock.Native

// The mail sheet: everything can be read and changed before the mail is sent.
FocusScope {
    id: sheet
    required property var composer

    anchors.fill: parent
    focus: true
    Component.onCompleted: {
        forceActiveFocus();
        rise.start();
    }
    Keys.onEscapePressed: composer.cancel()
    Accessible.role: Accessible.Dialog
    Accessible.name: qsTr("New Message")

    Rectangle {
        id: scrim
        anchors.fill: parent
        color: Theme.scrim
        MouseArea { anchors.fill: parent; hoverEnabled: true; onWheel: (wheel) => wheel.accepted = true }
    }
    Rectangle {
        id: paper
        objectName: "composer"
        width: Math.min(parent.width, Theme.widest)
        // Its lower corners are below the window.
        height: parent.height - 24 + radius
        anchors.horizontalCenter: parent.horizontalCenter
        y: 24
        radius: 12
        color: Theme.card

        Item {
            id: bar
            width: parent.width
            height: Theme.barHeight
            PlainButton {
                id: cancel
                objectName: "mail:cancel"
                anchors.left: parent.left
                anchors.leftMargin: Theme.inset
                height: parent.height
                text: qsTr("Cancel")
                size: Theme.barText
                available: !sheet.composer.sending
                onPressed: sheet.composer.cancel()
            }
            Label {
                objectName: "mail:title"
                anchors.centerIn: parent
                readonly property real beside: Math.max(cancel.width, send.width) + Theme.inset + 8
                width: Math.min(implicitWidth, parent.width - 2 * beside)
                text: qsTr("New Message")
                font.pixelSize: Theme.barText
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 8
                verticalAlignment: Text.AlignVCenter
                font.weight: Font.DemiBold
            }
            PlainButton {
                id: send
                objectName: "mail:send"
                anchors.right: parent.right
                anchors.rightMargin: Theme.inset
                height: parent.height
                text: sheet.composer.sending ? qsTr("Sending") : qsTr("Send")
                strong: true
                size: Theme.barText
                available: !sheet.composer.sending && sheet.composer.recipients !== ""
                onPressed: sheet.composer.send()
            }
            Hairline { anchors.bottom: parent.bottom; width: parent.width }
        }
        Flickable {
            anchors.top: bar.bottom
            anchors.bottom: parent.bottom
            width: parent.width
            clip: true
            contentHeight: column.height

            Column {
                id: column
                width: parent.width
                ComposerField {
                    name: qsTr("To:")
                    value: sheet.composer.recipients
                    onEdited: (text) => sheet.composer.setRecipients(text)
                }
                ComposerField {
                    name: qsTr("Subject:")
                    value: sheet.composer.subject
                    onEdited: (text) => sheet.composer.setSubject(text)
                }
                TextEdit {
                    id: body
                    objectName: "mail:body"
                    width: parent.width
                    padding: Theme.inset
                    color: Theme.label
                    selectionColor: Theme.tint
                    font.family: Theme.family
                    font.pixelSize: Theme.body
                    wrapMode: TextEdit.Wrap
                    selectByMouse: true
                    activeFocusOnTab: true
                    textFormat: TextEdit.PlainText
                    Accessible.role: Accessible.EditableText
                    Accessible.name: qsTr("Message")
                    Component.onCompleted: text = sheet.composer.body
                    onTextChanged: if (activeFocus) sheet.composer.setBody(text)
                    TextMenuOpener {}
                }
                Repeater {
                    model: sheet.composer.attachments
                    AttachmentRow {
                        required property int index
                        required property var modelData
                        name: modelData.name
                        size: modelData.size
                        onRemoved: sheet.composer.removeAttachment(index)
                    }
                }
                Item { width: 1; height: 40 }
            }
        }
    }
    NumberAnimation {
        id: rise
        target: paper
        property: Theme.reducedMotion ? "opacity" : "y"
        from: Theme.reducedMotion ? 0 : sheet.height
        to: Theme.reducedMotion ? 1 : 24
        duration: 280
        easing.type: Easing.OutCubic
    }
}
