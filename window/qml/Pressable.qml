import QtQuick

// An item that Space, Return and Enter press. A key that is held down presses once.
Item {
    /// Whether keys press it now.
    property bool takesKeys: true
    signal pressed()

    Keys.onPressed: (event) => {
        if (!takesKeys || ![Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter].includes(event.key))
            return;
        event.accepted = true;
        if (!event.isAutoRepeat)
            pressed();
    }
}
