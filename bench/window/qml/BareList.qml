import QtQuick
import QtQuick.Window

// A list of texts and nothing else. It is made when it is asked for.
Window {
    width: 390
    height: 844
    visible: true
    property alias shown: loader.active

    Loader {
        id: loader
        anchors.fill: parent
        active: false
        sourceComponent: ListView {
            objectName: "list"
            model: names
            reuseItems: true
            delegate: Text {
                required property string display
                height: 35
                text: display
            }
        }
    }
}
