import QtQuick
import QtQuick.Window

// What every window of Qt Quick costs.
Window {
    width: 390
    height: 844
    visible: true
}
