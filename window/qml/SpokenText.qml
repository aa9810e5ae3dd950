import QtQuick
import Wardlock.Native

// What a screen reader says once. It can be found for a while, and is never seen.
Announcement {
    id: spoken
    objectName: "spoken"
    width: 1
    height: 1
    Accessible.role: Accessible.Notification
    Accessible.name: text
    Accessible.ignored: text === ""

    function say(words) {
        // The same words again are said again.
        text = "";
        text = words;
        forgetting.restart();
    }

    Item {
        anchors.fill: parent
        Accessible.role: Accessible.StaticText
        Accessible.name: spoken.text
    }
    Timer {
        id: forgetting
        interval: 10000
        onTriggered: spoken.text = ""
    }
}
