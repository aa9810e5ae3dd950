import QtQuick
import Wardlock.Native

// Text in the window's type.
Text {
    color: Look.label
    font.family: Look.family
    font.pixelSize: Look.body
    elide: Text.ElideRight
    textFormat: Text.PlainText
    horizontalAlignment: Text.AlignLeft
}
