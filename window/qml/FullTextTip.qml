import QtQuick
import Wardlock.Native

// The whole of an elided text, beside the place where it is elided. It takes no input, and a screen reader knows the text.
Item {
    id: tips
    readonly property rect area: fullText.area
    readonly property real margin: 8

    Rectangle {
        id: tip
        objectName: "fullText"
        width: Math.ceil(words.width) + 20
        height: Math.ceil(words.height) + 14
        x: Math.max(tips.margin, Math.min(tips.area.x, tips.width - width - tips.margin))
        y: tips.area.y + tips.area.height + height + 4 <= tips.height ? tips.area.y + tips.area.height + 4
                                                                      : Math.max(tips.margin, tips.area.y - height - 4)
        radius: Theme.corner
        color: Theme.sheet
        border.color: Theme.separator

        Label {
            id: words
            objectName: "fullText:words"
            anchors.centerIn: parent
            width: Math.min(implicitWidth, tips.width - 2 * tips.margin - 20)
            text: fullText.text
            font.pixelSize: Theme.small
            wrapMode: Text.Wrap
            maximumLineCount: 12
            Accessible.ignored: true
        }
    }
}
