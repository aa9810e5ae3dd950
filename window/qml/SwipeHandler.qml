import QtQuick

// A drag along the line, which ends when the finger is lifted or is cancelled, by the desktop for example. The handler
// itself reports that only after it has become inactive.
DragHandler {
    id: swipe
    /// From the beginning until one of the signals.
    property bool held: false
    signal began()
    signal released()
    signal abandoned()

    target: null
    yAxis.enabled: false

    onActiveChanged: {
        if (active) {
            held = true;
            began();
        } else
            Qt.callLater(finish);
    }
    onGrabChanged: if (!active) finish()
    onCanceled: {
        if (!held)
            return;
        held = false;
        abandoned();
    }
    function finish() {
        if (!held || active)
            return;
        held = false;
        released();
    }
}
