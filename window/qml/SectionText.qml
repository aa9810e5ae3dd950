import QtQuick
import Wardlock.Native

// A section's header or footer; an empty header is the gap between two cards.
Item {
    id: line
    property string text
    property bool isHeader: false
    property bool isFirst: false

    readonly property int gap: Math.round(7 * Theme.signScale)
    readonly property int above: isHeader ? (isFirst ? 20 : 24) : gap
    readonly property int below: isHeader ? gap : 0

    implicitHeight: text === "" ? (isHeader ? (isFirst ? 20 : 28) : 0) : above + Math.ceil(words.implicitHeight) + below

    Label {
        id: words
        visible: line.text !== ""
        x: Theme.inset
        y: line.above
        width: line.width - 2 * Theme.inset
        text: line.isHeader ? line.text.toUpperCase() : line.text
        color: Theme.secondary
        font.pixelSize: Theme.small
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        lineHeight: 1.15
        Accessible.role: line.isHeader ? Accessible.Heading : Accessible.StaticText
        Accessible.name: line.text
    }
}
