import QtQuick
import QtQuick.Window
import Wardlock.Native

// A row's picture, square; nothing where there is none.
Image {
    width: Look.icon
    height: Look.icon
    sourceSize: Qt.size(Look.icon * Screen.devicePixelRatio, Look.icon * Screen.devicePixelRatio)
    fillMode: Image.PreserveAspectFit
    asynchronous: true
    visible: source != ""
    Accessible.ignored: true
}
