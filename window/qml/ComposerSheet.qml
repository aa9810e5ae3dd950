import QtQuick
import Wardlock.Native

// The mail sheet: everything can be read and changed before the mail is sent.
PaperSheet {
    id: sheet
    required property var composer

    /// How much of the lower end is covered by notices.
    property real hidden: 0

    paper.objectName: "composer"
    beneath: shown.active || discard.active
    Keys.onEscapePressed: cancel()
    Accessible.name: qsTr("New Message")

    /// Asks before it discards what was written. A mail on its way cannot be cancelled.
    function cancel() {
        if (composer.sending)
            return;
        composer.finishTyping();
        if (composer.edited)
            discard.active = true;
        else
            composer.cancel();
    }
    /// Returns whether the window may close; asks first where something was written. A mail on its way would be lost.
    function mayClose() {
        composer.finishTyping();
        if (!composer.edited && !composer.sending)
            return true;
        cancel();
        return false;
    }

    Item {
        id: bar
        width: parent.width
        height: Theme.barHeight
        PlainButton {
            id: cancelButton
            objectName: "mail:cancel"
            anchors.left: parent.left
            anchors.leftMargin: Theme.inset
            height: parent.height
            text: qsTr("Cancel")
            size: Theme.barText
            available: !sheet.composer.sending
            onPressed: sheet.cancel()
        }
        Label {
            objectName: "mail:title"
            anchors.centerIn: parent
            readonly property real beside: Math.max(cancelButton.width, send.width) + Theme.inset + 8
            width: Math.min(implicitWidth, parent.width - 2 * beside)
            // Smaller letters than these would say less than none.
            visible: width >= implicitWidth * 0.75
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
        id: flick
        objectName: "mail:scroll"
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: sheet.paper.radius
        width: parent.width
        clip: true
        contentHeight: column.height
        bottomMargin: sheet.hidden

        /// Scrolls no further than needed until that part of the content is in sight.
        function show(top, bottom) {
            if (top < contentY)
                contentY = Math.max(0, top);
            else if (bottom + sheet.hidden > contentY + height)
                contentY = bottom + sheet.hidden - height;
        }
        function follow(caret) {
            show(body.y + caret.y - 8, body.y + caret.y + caret.height + 8);
        }
        // The text of the mail has its own caret.
        readonly property Item focused: Window.activeFocusItem
        onFocusedChanged: {
            let outer = focused === body ? null : focused;
            while (outer && outer !== column)
                outer = outer.parent;
            if (outer === null)
                return;
            const top = focused.mapToItem(column, 0, 0).y;
            show(top, top + focused.height);
        }
        // Where the window becomes lower, too.
        onHeightChanged: if (body.activeFocus) follow(body.cursorRectangle)

        Column {
            id: column
            width: parent.width
            ComposerField {
                name: qsTr("To:")
                value: sheet.composer.recipients
                readOnly: sheet.composer.sending
                onEdited: (text) => sheet.composer.setRecipients(text)
            }
            ComposerField {
                name: qsTr("Subject:")
                value: sheet.composer.subject
                readOnly: sheet.composer.sending
                onEdited: (text) => sheet.composer.setSubject(text)
            }
            TextEdit {
                id: body
                objectName: "mail:body"
                width: parent.width
                // A click below the last line is in the text, too.
                height: Math.max(implicitHeight, flick.height - sheet.hidden - y - attachments.height)
                padding: Theme.inset
                color: Theme.label
                selectionColor: Theme.tint
                font.family: Theme.family
                font.pixelSize: Theme.body
                wrapMode: TextEdit.Wrap
                readOnly: sheet.composer.sending
                selectByMouse: true
                activeFocusOnTab: true
                textFormat: TextEdit.PlainText
                Accessible.role: Accessible.EditableText
                Accessible.name: qsTr("Message")
                Accessible.readOnly: readOnly
                Component.onCompleted: text = sheet.composer.body
                onTextChanged: if (activeFocus) sheet.composer.setBody(text)
                // The keys lead on from here, too.
                Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
                Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
                onCursorRectangleChanged: if (activeFocus) flick.follow(cursorRectangle)
                TextMenuOpener {}
            }
            Column {
                id: attachments
                width: parent.width
                bottomPadding: 40
                Repeater {
                    model: sheet.composer.attachments
                    AttachmentRow {
                        required property int index
                        required property var modelData
                        name: modelData.name
                        size: modelData.size
                        removable: !sheet.composer.sending
                        onPressed: {
                            shown.index = index;
                            shown.name = modelData.name;
                            shown.active = true;
                        }
                        onRemoved: sheet.composer.removeAttachment(index)
                    }
                }
            }
        }
    }
    Loader {
        id: shown
        property int index: -1
        property string name
        parent: sheet
        anchors.fill: parent
        active: false
        focus: active
        onActiveChanged: if (!active) sheet.takeFocusBack()
        sourceComponent: TextSheet {
            title: shown.name
            text: sheet.composer.attachmentText(shown.index)
            paper.objectName: "attachment"
            onClosed: shown.active = false
        }
    }
    Loader {
        id: discard
        parent: sheet
        anchors.fill: parent
        active: false
        focus: active
        onActiveChanged: if (!active) sheet.takeFocusBack()
        sourceComponent: AlertSheet {
            alert: QtObject {
                readonly property string title: qsTr("Discard this message?")
                readonly property string message: qsTr("What you have written will be lost.")
                readonly property var fields: []
                readonly property var actions: [
                    { title: qsTr("Keep Writing"), style: "cancel", enabled: true },
                    { title: qsTr("Discard"), style: "destructive", enabled: true }
                ]
                function choose(index) {
                    discard.active = false;
                    if (index === 1)
                        sheet.composer.cancel();
                }
            }
        }
    }
}
