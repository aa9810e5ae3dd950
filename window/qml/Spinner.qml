import QtQuick

// Twelve spokes that turn; visible only while it runs.
Item {
    id: spinner
    property bool running: false
    property color color: "black"

    width: 37
    height: 37
    visible: running
    Accessible.role: Accessible.Animation
    Accessible.name: qsTr("Loading")

    Item {
        id: wheel
        anchors.fill: parent
        Repeater {
            model: 12
            Item {
                required property int index
                anchors.fill: parent
                rotation: index * 30
                Rectangle {
                    anchors.horizontalCenter: parent.horizontalCenter
                    width: 3.2
                    height: 10
                    radius: 1.6
                    antialiasing: true
                    color: spinner.color
                    opacity: 0.15 + 0.85 * parent.index / 11
                }
            }
        }
    }
    Timer {
        running: spinner.running
        interval: 83
        repeat: true
        onTriggered: wheel.rotation = (wheel.rotation + 30) % 360
    }
}
