import QtQuick
import Wardlock.Native

// Text in the window's font.
Text {
    color: Theme.label
    font.family: Theme.family
    font.pixelSize: Theme.body
    elide: Text.ElideRight
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
}
