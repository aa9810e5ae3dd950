import QtQuick
import Wardlock.Native

// An alert over the page.
Modal {
    id: sheet
    required property var alert

    anchors.fill: parent
    focus: true
    Accessible.role: Accessible.AlertMessage
    Accessible.name: alert.title
    Accessible.description: alert.message

    readonly property bool sideBySide: alert.actions.length === 2
        && alert.actions.every((action) => metrics.advanceWidth(action.title) + 20 <= box.width / 2)
    FontMetrics {
        id: metrics
        font.family: Theme.family
        font.pixelSize: Theme.body
        font.weight: Font.DemiBold
    }

    function chooseStyle(style) {
        for (let i = 0; i < alert.actions.length; ++i)
            if (alert.actions[i].style === style && alert.actions[i].enabled)
                return alert.choose(i);
    }
    Keys.onEscapePressed: chooseStyle("cancel")
    Component.onCompleted: {
        if (fields.count > 0)
            fields.itemAt(0).input.forceActiveFocus();
        else
            forceActiveFocus();
        appear.start();
    }

    Rectangle {
        id: scrim
        anchors.fill: parent
        color: Theme.scrim
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true
            onWheel: (wheel) => wheel.accepted = true
        }
    }
    Rectangle {
        id: box
        objectName: "alert"
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round((parent.height - height) * (fields.count > 0 ? 0.38 : 0.5))
        width: Math.min(Math.round(270 * Math.max(1, Math.min(Theme.textScale, 1.4))), parent.width - 32)
        height: texts.height + buttons.height
        radius: 14
        color: Theme.sheet

        // What is higher than the window is scrolled, the buttons below it excepted.
        Flickable {
            id: texts
            objectName: "alert:texts"
            width: parent.width
            height: Math.min(column.height, Math.max(0, sheet.height - buttons.height - 32))
            contentHeight: column.height
            interactive: contentHeight > height
            boundsBehavior: Flickable.StopAtBounds
            clip: true

            Column {
                id: column
                width: parent.width
                topPadding: 20
                bottomPadding: 20

                WholeWords {
                    objectName: "alert:title"
                    x: 16
                    width: parent.width - 32
                    words: sheet.alert.title
                    font.weight: Font.DemiBold
                    horizontalAlignment: Text.AlignHCenter
                }
                WholeWords {
                    x: 16
                    width: parent.width - 32
                    visible: sheet.alert.message !== ""
                    topPadding: 4
                    words: sheet.alert.message
                    font.pixelSize: Theme.small
                    horizontalAlignment: Text.AlignHCenter
                }
                Repeater {
                    id: fields
                    model: sheet.alert.fields
                    AlertField {
                        required property int index
                        required property string modelData
                        objectName: "alert:field"
                        x: 16
                        width: column.width - 32
                        placeholder: modelData
                        onTyped: (text) => sheet.alert.type(index, text)
                        onEntered: sheet.chooseStyle("default")
                    }
                }
            }
        }
        Hairline {
            anchors.bottom: texts.bottom
            width: parent.width
        }
        Flow {
            id: buttons
            anchors.top: texts.bottom
            width: parent.width
            Repeater {
                // By index, so that a button stays the same item when it is enabled.
                model: sheet.alert.actions.length
                Item {
                    id: place
                    required property int index
                    readonly property var action: sheet.alert.actions[index]
                    width: sheet.sideBySide ? buttons.width / 2 : buttons.width
                    height: Math.max(44, Theme.rowHeight)
                    PlainButton {
                        objectName: "alert:" + place.action.title
                        anchors.fill: parent
                        ringInset: 4
                        text: place.action.title
                        available: place.action.enabled
                        strong: place.action.style === "cancel"
                        color: place.action.style === "destructive" ? Theme.destructive : Theme.tint
                        onPressed: sheet.alert.choose(place.index)
                    }
                    Rectangle {
                        visible: sheet.sideBySide && place.index === 1
                        anchors.left: parent.left
                        width: 1
                        height: parent.height
                        color: Theme.separator
                    }
                    Hairline {
                        visible: !sheet.sideBySide && place.index > 0
                        width: parent.width
                    }
                }
            }
        }
    }
    ParallelAnimation {
        id: appear
        NumberAnimation { target: scrim; property: "opacity"; from: 0; to: 1; duration: 160 }
        NumberAnimation { target: box; property: "opacity"; from: 0; to: 1; duration: 160 }
        NumberAnimation { target: box; property: "scale"; from: Theme.reducedMotion ? 1 : 1.12; to: 1; duration: 200; easing.type: Easing.OutCubic }
    }
}
