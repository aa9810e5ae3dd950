import QtQuick
import Wardlock.Native

// Pulled down over a list: filters its rows. Its content is created at its first use.
Item {
    id: search
    readonly property string text: content.item ? content.item.text : ""
    property bool shown: false
    signal closed()
    signal accepted()

    implicitHeight: shown ? openHeight : 0
    readonly property real openHeight: 16 + Math.max(36, Math.round(36 * Theme.barScale))
    visible: implicitHeight > 0
    clip: true
    Behavior on implicitHeight { enabled: !Theme.reducedMotion; NumberAnimation { duration: 180; easing.type: Easing.OutCubic } }

    /// What takes the keyboard focus, in order.
    function stops() {
        return shown && content.item ? content.item.stops() : [];
    }
    function begin() {
        content.active = true;
        shown = true;
        content.item.begin();
    }
    function end() {
        content.item.text = "";
        shown = false;
        closed();
    }

    Loader {
        id: content
        anchors.fill: parent
        active: false
        source: "SearchBox.qml"
        onLoaded: {
            item.cancelled.connect(search.end);
            item.accepted.connect(search.accepted);
        }
    }
}
