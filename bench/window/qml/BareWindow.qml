import QtQuick
import QtQuick.Window

// The cost of every Qt Quick window.
Window {
    width: 390
    height: 844
    visible: true
}
