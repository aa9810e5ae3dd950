import QtQuick
import Wardlock.Native

// A page of text to read.
Flickable {
    id: textPage
    required property var page

    /// How much of the lower end is covered by notices.
    property real covered: 0

    objectName: "text"
    contentHeight: words.implicitHeight + 32 + covered
    clip: true
    focus: true
    boundsBehavior: Flickable.DragAndOvershootBounds
    Accessible.role: Accessible.StaticText
    Accessible.name: page.text

    function scrollTo(y) {
        contentY = Math.max(0, Math.min(y, contentHeight - height));
    }
    Keys.onPressed: (event) => {
        const steps = { [Qt.Key_Down]: 40, [Qt.Key_Up]: -40, [Qt.Key_PageDown]: height - 40, [Qt.Key_PageUp]: 40 - height,
                        [Qt.Key_Space]: height - 40, [Qt.Key_End]: contentHeight, [Qt.Key_Home]: -contentHeight };
        if (steps[event.key] === undefined)
            return;
        scrollTo(contentY + steps[event.key]);
        event.accepted = true;
    }

    TextParts {
        id: directions
        text: textPage.page.text
    }
    Column {
        id: words
        x: Theme.sideMargin(textPage.width)
        y: 16
        width: textPage.width - 2 * x
        Repeater {
            model: directions.parts
            Label {
                required property string modelData
                objectName: "words"
                width: words.width
                text: modelData
                font.pixelSize: Math.round(textPage.page.textSize * Theme.textScale)
                wrapMode: Text.Wrap
                // As the text itself is read, whatever the direction of the window.
                horizontalAlignment: undefined
                elide: Text.ElideNone
                lineHeight: 1.2
                Accessible.ignored: true
            }
        }
    }
}
