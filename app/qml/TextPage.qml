import QtQuick

// A page of text to read.
Flickable {
    id: textPage
    required property var page

    objectName: "text"
    contentHeight: words.implicitHeight + 32
    clip: true
    boundsBehavior: Flickable.DragAndOvershootBounds
    Accessible.role: Accessible.StaticText
    Accessible.name: page.text

    Label {
        id: words
        x: Look.sideMargin(textPage.width)
        y: 16
        width: textPage.width - 2 * x
        text: textPage.page.text
        font.pixelSize: Math.round(textPage.page.textSize * Look.textScale)
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeight: 1.2
        Accessible.ignored: true
    }
}
