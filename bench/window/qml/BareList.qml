import QtQuick
import QtQuick.Window

// Only a list of texts: of the picker's type and height of row, and as much of it in sight. It is created on
// request.
Window {
    width: 390
    height: 844
    visible: true
    property alias shown: loader.active

    Loader {
        id: loader
        anchors.fill: parent
        // The picker's bar and the space over its first row.
        anchors.topMargin: 72
        active: false
        sourceComponent: ListView {
            objectName: "list"
            model: names
            reuseItems: true
            delegate: Text {
                required property string display
                height: 35
                text: display
                textFormat: Text.PlainText
                font.family: "Inter"
                font.pixelSize: 17
            }
        }
    }
}
