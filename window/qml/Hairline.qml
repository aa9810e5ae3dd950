import QtQuick
import QtQuick.Window
import Wardlock.Native

// A line as thin as the screen can show.
Rectangle {
    height: 1 / Screen.devicePixelRatio
    color: Theme.separator
}
