import QtQuick
import Wardlock.Native

// The arrow that leads on, or, turned, back.
Item {
    id: chevron
    property color color: Look.chevron
    property real thickness: 2
    property bool back: false
    readonly property bool pointsLeft: back !== LayoutMirroring.enabled

    implicitWidth: 8
    implicitHeight: 13

    Repeater {
        model: [45, -45]
        Rectangle {
            required property int modelData
            antialiasing: true
            width: chevron.height * 0.7
            height: chevron.thickness
            radius: height / 2
            color: chevron.color
            x: (chevron.width - width) / 2
            y: chevron.height / 2 - height / 2 + (modelData > 0 === chevron.pointsLeft ? 1 : -1) * width * 0.355
            rotation: modelData
        }
    }
}
