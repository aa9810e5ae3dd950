import QtQuick
import QtQuick.Window

// The cost of every Qt Quick window with a text: the first one has Qt read the fonts of the system.
Window {
    width: 390
    height: 844
    visible: true

    Text {
        text: "Settings"
        textFormat: Text.PlainText
        font.family: "Inter"
        font.pixelSize: 17
    }
}
