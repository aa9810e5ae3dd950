import QtQuick

// Shows how many digits are entered.
Row {
    id: dots
    property int count: 0

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1 of 4 digits entered").arg(count)

    Repeater {
        model: 4
        Rectangle {
            required property int index
            width: 13
            height: 13
            radius: 6.5
            color: index < dots.count ? "white" : "transparent"
            border.color: "white"
            border.width: 1.2
        }
    }
}
