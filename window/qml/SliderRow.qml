import QtQuick
import Wardlock.Native

// The slider of a row, with its number where the row shows it.
Item {
    id: sliderRow
    required property var page
    required property var entry

    readonly property alias control: slider

    implicitHeight: slider.implicitHeight

    SliderControl {
        id: slider
        objectName: "slider:" + sliderRow.entry.label
        label: sliderRow.entry.label !== "" ? sliderRow.entry.label : sliderRow.entry.key
        place: sliderRow.entry.place
        minimumValue: sliderRow.entry.min
        maximumValue: sliderRow.entry.max
        position: (sliderRow.entry.position - sliderRow.entry.min) / (sliderRow.entry.max - sliderRow.entry.min)
        anchors.left: parent.left
        anchors.right: number.visible ? number.left : parent.right
        anchors.rightMargin: number.visible ? 10 : 0
        onMovedTo: (position) => sliderRow.page.moveSlider(
            sliderRow.entry.section, sliderRow.entry.row,
            sliderRow.entry.min + position * (sliderRow.entry.max - sliderRow.entry.min))
    }
    Label {
        id: number
        visible: sliderRow.entry.showsValue
        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        text: (sliderRow.entry.min + slider.shown * (sliderRow.entry.max - sliderRow.entry.min)).toLocaleString(Qt.locale(), "f", 2)
        color: Theme.value
        Accessible.ignored: true
    }
}
