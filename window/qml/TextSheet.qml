import QtQuick
import Wardlock.Native

// A sheet with a text to read.
PaperSheet {
    id: sheet
    property string title
    property string text
    property int format: Text.PlainText
    signal closed()

    Accessible.name: title
    Keys.onEscapePressed: closed()
    Keys.onPressed: (event) => {
        const page = flick.height - 40;
        const steps = { [Qt.Key_Down]: 40, [Qt.Key_Up]: -40, [Qt.Key_PageDown]: page, [Qt.Key_PageUp]: -page,
                        [Qt.Key_Space]: page, [Qt.Key_End]: flick.contentHeight, [Qt.Key_Home]: -flick.contentHeight };
        if (steps[event.key] === undefined)
            return;
        flick.contentY = Math.max(0, Math.min(flick.contentY + steps[event.key], flick.contentHeight - flick.height));
        event.accepted = true;
    }

    Item {
        id: bar
        width: parent.width
        height: Theme.barHeight
        Label {
            objectName: "sheet:title"
            anchors.centerIn: parent
            width: Math.min(implicitWidth, parent.width - 2 * (done.width + Theme.inset + 8))
            text: sheet.title
            font.pixelSize: Theme.barText
            fontSizeMode: Text.HorizontalFit
            minimumPixelSize: 13
            verticalAlignment: Text.AlignVCenter
            font.weight: Font.DemiBold
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        PlainButton {
            id: done
            objectName: "sheet:done"
            anchors.right: parent.right
            anchors.rightMargin: Theme.inset
            height: parent.height
            text: qsTr("Done")
            strong: true
            size: Theme.barText
            onPressed: sheet.closed()
        }
        Hairline { anchors.bottom: parent.bottom; width: parent.width }
    }
    Flickable {
        id: flick
        objectName: "sheet:scroll"
        anchors.top: bar.bottom
        anchors.bottom: parent.bottom
        anchors.bottomMargin: sheet.paper.radius
        width: parent.width
        clip: true
        contentHeight: words.implicitHeight + 2 * Theme.inset
        boundsBehavior: Flickable.DragAndOvershootBounds

        Label {
            id: words
            objectName: "sheet:words"
            x: Theme.inset
            y: Theme.inset
            width: flick.width - 2 * Theme.inset
            text: sheet.text
            textFormat: sheet.format
            linkColor: Theme.tint
            wrapMode: Text.Wrap
            // As the text itself is read, whatever the direction of the window.
            horizontalAlignment: undefined
            elide: Text.ElideNone
            lineHeight: 1.15
            Accessible.role: Accessible.StaticText
        }
    }
}
