import QtQuick
import Wardlock.Native

// Pulled down over a list: filters its rows. What is in it is made when it is first asked for.
Item {
    id: search
    readonly property string text: content.item ? content.item.text : ""
    property bool shown: false
    signal closed()

    implicitHeight: shown ? 52 : 0
    visible: implicitHeight > 0
    clip: true
    Behavior on implicitHeight { enabled: !Theme.reducedMotion; NumberAnimation { duration: 180; easing.type: Easing.OutCubic } }

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
        sourceComponent: SearchBox { onCancelled: search.end() }
    }
}
