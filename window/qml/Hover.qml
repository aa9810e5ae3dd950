import QtQuick

// Whether the mouse is over the item that this is a part of.
HoverHandler {
    enabled: keyboard.mouseMoved
    acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
}
